#include "platform/Startup.h"
#include "shell/QuorvantelApp.h"

int main(int argc, char** argv) {
    using namespace quorvantel;
    return platform::runApplication(
        argc, argv, [](platform::Platform& platform) { return QuorvantelApp(platform).run(); });
}
