// Feeds arbitrary bytes to the atlas reader and then to the skeleton reader
// with that atlas, as a package load would.
#include "platform/ZuLog.h"
#include "spine/spRuntime.h"

#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

namespace {

const char* kSkeleton = R"({
  "bones": [{"name": "root"}],
  "slots": [{"name": "a", "bone": "root", "attachment": "a"}, {"name": "b", "bone": "root", "attachment": "b"}],
  "skins": {"default": {
    "a": {"a": {"width": 10, "height": 10}},
    "b": {"b": {"type": "mesh", "uvs": [0, 0, 1, 0, 1, 1], "triangles": [0, 1, 2], "vertices": [0, 0, 5, 0, 5, 5]}}
  }}
})";

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    static bool quiet = (ZuLog::setLevel(ZU_LOG_SILENT), true);
    (void)quiet;
    if (size > (1 << 20)) return 0;
    spAtlas* atlas = spAtlas_create((const char*)bytes, (int)size, "dir", nullptr);
    if (!atlas) return 0;
    for (spAtlasRegion* region = atlas->regions; region; region = region->next) {
        if (region->splits && region->splits[3] == 12345) __builtin_trap();  // touches the split block
        if (region->pads && region->pads[3] == 12345) __builtin_trap();
    }
    spAtlasRegion* first = atlas->regions;
    if (first && strlen(first->name) < 64) {
        // Point the skeleton's attachments at whatever the atlas names first.
        char text[2048];
        const char* name = first->name;
        int n = snprintf(text, sizeof(text),
                         R"({"bones": [{"name": "root"}], "slots": [{"name": "a", "bone": "root", "attachment": "a"}],
                            "skins": {"default": {"a": {"a": {"path": "%s"}, "m": {"type": "mesh", "path": "%s",
                            "uvs": [0, 0, 1, 0, 1, 1], "triangles": [0, 1, 2], "vertices": [0, 0, 5, 0, 5, 5]}}}}})",
                         name, name);
        spSkeletonJson* json = spSkeletonJson_create(atlas);
        spSkeletonData* data =
            n > 0 && n < (int)sizeof(text) ? spSkeletonJson_readSkeletonData(json, text) : nullptr;
        spSkeletonData_dispose(data);
        data = spSkeletonJson_readSkeletonData(json, kSkeleton);
        spSkeletonData_dispose(data);
        spSkeletonJson_dispose(json);
    }
    spAtlas_dispose(atlas);
    return 0;
}
