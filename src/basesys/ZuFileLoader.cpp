#include "basesys/ZuFileLoader.h"

ZuFileLoader::ZuFileLoader(ZuAppMain* app) : ZuGBase(app) {}

ZuFileLoader::~ZuFileLoader() = default;

int ZuFileLoader::load(const char* path) { return 0; }
