// Checks the sanitizer settings the suite runs under: the exit-time leak
// scan must survive a dynamic TLS block that starts 16 bytes into a page
// (where this toolchain's runtime would read a stale glibc header as the
// block's bounds and fault), and must still see pointers that live only in
// such a block. Exits 77 (skipped) when the heap walk cannot place the block.
#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kSkipped = 77;
constexpr uintptr_t kPage = 4096;
constexpr uintptr_t kHeaderSize = 16; // the stale header's size
constexpr size_t kProbeBytes = 16;    // the probe library's thread-local data
void* gKeep[20000];                   // reachable, so never reported

// Stores a fresh allocation in the TLS block only; kept out of line, and the
// stack scrubbed after it, so that no stale copy on the stack keeps it alive.
__attribute__((noinline)) void holdOnlyInTls(long* block) {
    block[0] = reinterpret_cast<long>(std::malloc(100));
}

__attribute__((noinline)) void scrubStack() {
    volatile char junk[1 << 16];
    for (size_t i = 0; i < sizeof junk; ++i) junk[i] = 0;
}

} // namespace

int main() {
    void* lib = dlopen(QZ_TLS_PROBE, RTLD_NOW);
    if (!lib) {
        std::fprintf(stderr, "cannot load the TLS probe: %s\n", dlerror());
        return 1;
    }
    auto slots = reinterpret_cast<long* (*)()>(dlsym(lib, "tlsProbeSlots"));
    if (!slots) return 1;

    // Allocations of the probe's size come one after another from the same
    // size class: walk it until the next one would start 16 bytes into a page.
    int n = 0;
    for (; n < 20000; ++n) {
        gKeep[n] = std::malloc(kProbeBytes);
        if (n == 0) continue;
        const uintptr_t here = reinterpret_cast<uintptr_t>(gKeep[n]);
        const uintptr_t step = here - reinterpret_cast<uintptr_t>(gKeep[n - 1]);
        if (step > 0 && step < kPage && (here + step) % kPage == kHeaderSize) break;
    }
    long* block = slots(); // the first access allocates this thread's block
    const uintptr_t offset = reinterpret_cast<uintptr_t>(block) % kPage;
    if (offset != kHeaderSize) {
        std::printf("the TLS block landed at page offset %zu; nothing checked\n", static_cast<size_t>(offset));
        return kSkipped;
    }
    // A leak report for this would mean the scan no longer reaches dynamic TLS.
    holdOnlyInTls(block);
    scrubStack();
    std::printf("TLS block at page offset 16 after %d allocations; the exit-time scan runs next\n", n);
    return 0;
}
