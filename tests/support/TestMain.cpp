// The main of every test program: runs the tests, then closes the headless
// GL display so that Mesa's rasteriser threads have ended before the process
// exits. LeakSanitizer's exit-time scan stops every thread of the process to
// read its stack; with the driver's threads gone it meets only this one.
#include "basesys/ZuCheck.h"
#include "platform/ZuHeadlessContext.h"

#include <dlfcn.h>
#include <link.h>
#include <gtest/gtest.h>

namespace {

// Takes one more reference on every shared object loaded now, so that the
// driver stays mapped after the display closes: the leak report then still
// names its allocations' library, which is how the driver's own lifetime
// allocations are told from the engine's.
void keepLoadedLibrariesMapped() {
    dl_iterate_phdr(
        [](dl_phdr_info* info, size_t, void*) {
            if (info->dlpi_name && info->dlpi_name[0]) dlopen(info->dlpi_name, RTLD_LAZY | RTLD_NOLOAD);
            return 0;
        },
        nullptr);
}

} // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // A broken engine invariant fails the test that broke it, wherever it is
    // found (an object left alive at shutdown, for one).
    ZuCheck::setInvariantHandler([](const char* message) { ADD_FAILURE() << message; });
    const int result = RUN_ALL_TESTS();
    keepLoadedLibrariesMapped();
    ZuHeadlessContext::instance().shutdown();
    return result;
}
