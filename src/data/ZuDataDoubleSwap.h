#pragma once

class ZuDataSwap;

// Two owned halves: a writer fills `next` while the reader uses `current`,
// and swap() exchanges them at the reader's chosen moment (a mesh exchanges
// at upload, on the GL thread).
class ZuDataDoubleSwap {
public:
    ZuDataDoubleSwap() = default;
    ~ZuDataDoubleSwap();
    ZuDataDoubleSwap(const ZuDataDoubleSwap&) = delete;
    ZuDataDoubleSwap& operator=(const ZuDataDoubleSwap&) = delete;

    // Creates the halves if needed and grows both to at least size.
    void apply(int size);
    // Creates the halves if needed and sets both to exactly size.
    void resize(int size);
    void reback();

    // The size when both halves exist and agree, else 0.
    int getsize() const;

    ZuDataSwap* getCurrentData() const { return current; }
    ZuDataSwap* getNextData() const { return next; }

    void swap();

private:
    void createHalves();

    ZuDataSwap* current = nullptr;
    ZuDataSwap* next = nullptr;
};
