// A library with thread-local data, loaded with dlopen like the GL driver:
// glibc gives each thread a dynamic TLS block for it from malloc.
extern "C" __attribute__((visibility("default"))) long* tlsProbeSlots() {
    static thread_local long slots[2];
    return slots;
}
