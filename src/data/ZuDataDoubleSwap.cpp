#include "data/ZuDataDoubleSwap.h"

#include "data/ZuDataSwap.h"

ZuDataDoubleSwap::~ZuDataDoubleSwap() {
    qzSafeRelease(current);
    qzSafeRelease(next);
}

void ZuDataDoubleSwap::createHalves() {
    if (!current) current = new ZuDataSwap();
    if (!next) next = new ZuDataSwap();
}

void ZuDataDoubleSwap::apply(int size) {
    createHalves();
    current->aplly(size);
    next->aplly(size);
}

void ZuDataDoubleSwap::resize(int size) {
    createHalves();
    current->resize(size);
    next->resize(size);
}

void ZuDataDoubleSwap::reback() {
    if (current) current->reback();
    if (next) next->reback();
}

int ZuDataDoubleSwap::getsize() const {
    if (!current || !next) return 0;
    int size = current->getSize();
    return size == next->getSize() ? size : 0;
}

void ZuDataDoubleSwap::swap() {
    ZuDataSwap* held = current;
    current = next;
    next = held;
}
