#include "basesys/ZuFileWriter.h"

ZuFileWriter::ZuFileWriter(ZuAppMain* app) : ZuGBase(app) {}

ZuFileWriter::~ZuFileWriter() = default;

int ZuFileWriter::write(const char* path, int width, int height, void* data) { return 0; }
