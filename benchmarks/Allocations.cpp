#include "Allocations.h"

#include <cstddef>

// Takes the place of the C library's functions, which the toolkit's containers call past the
// operator new.

namespace {

std::uint64_t count = 0;

} // namespace

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier)
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t number, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
// NOLINTEND(bugprone-reserved-identifier)

void* malloc(std::size_t size) {
    ++count;
    return __libc_malloc(size);
}

void* calloc(std::size_t number, std::size_t size) {
    ++count;
    return __libc_calloc(number, size);
}

void* realloc(void* memory, std::size_t size) {
    ++count;
    return __libc_realloc(memory, size);
}
}

std::uint64_t quorvantel::allocations() {
    return count;
}
