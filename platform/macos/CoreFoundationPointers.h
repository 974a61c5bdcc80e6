#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <memory>
#include <type_traits>

namespace quorvantel::platform {

/// Gives an object of Core Foundation's back.
struct CoreFoundationRelease {
    void operator()(CFTypeRef object) const { CFRelease(object); }
};

/// Owns what a function with "Create" or "Copy" in its name returned, such as a `CFStringRef`. May
/// be null.
template <typename Reference>
using CoreFoundationPointer =
    std::unique_ptr<std::remove_pointer_t<Reference>, CoreFoundationRelease>;

} // namespace quorvantel::platform
