// Feeds arbitrary bytes to the head-pose position table reader. The text is
// handed over without a terminator, so any read past its end is caught.
#include "person/ZuPosData.h"
#include "platform/ZuLog.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static bool quiet = (ZuLog::setLevel(ZU_LOG_SILENT), true);
    (void)quiet;
    std::vector<char> text(data, data + size);
    ZuPosData table(nullptr);
    table._read(text.data(), static_cast<int>(text.size()));
    // Every row found must be whole: touching its last value is enough for
    // the sanitizer to see a short allocation.
    for (int yaw = 0; yaw < 121; yaw += 7)
        for (int pitch = 0; pitch < 121; pitch += 11)
            if (const int* row = table.getPos(yaw, pitch)) {
                volatile int last = row[ZuPosData::kRowValues - 1];
                (void)last;
            }
    table.destroy();
    if (table.getRowCount() != 0) abort();
    return 0;
}
