// Feeds arbitrary bytes to the mesh reader, then prepares and animates
// whatever it accepted, as a character node would.
#include "basesys/MemoryDataStream.h"
#include "core/AnimationStateSet.h"
#include "core/MeshSerializer.h"
#include "core/ZuOgrePieceModel.h"
#include "platform/ZuLog.h"

#include <stddef.h>
#include <stdint.h>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    static bool quiet = (ZuLog::setLevel(ZU_LOG_SILENT), true);
    (void)quiet;
    if (size > (1 << 20)) return 0;
    std::vector<uint8_t> copy(bytes, bytes + size);
    // The directory doesn't exist: a skeleton link is refused, never read.
    MemoryDataStream stream("/nonexistent/fuzz.mesh", copy.data(), copy.size());
    ZuOgrePieceModel model;
    MeshSerializer reader;
    if (!reader.importMesh(stream, &model)) return 0;
    model.initAnimationState();
    for (const std::string& name : model.getAnimationStateSet().getAnimationStateNames()) {
        AnimationState* state = model.getAnimationState(name);
        state->setEnabled(true);
        state->setTimePosition(state->getLength() * 0.7f);
    }
    model.ApplyVertexAnimation();
    model.ApplySkeletonAnimation();
    return 0;
}
