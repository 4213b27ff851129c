// Feeds arbitrary bytes to the skeleton reader, then plays every animation
// it accepted at once and takes the bone matrices.
#include "basesys/MemoryDataStream.h"
#include "core/AnimationStateSet.h"
#include "core/Skeleton.h"
#include "core/SkeletonSerializer.h"
#include "platform/ZuLog.h"

#include <stddef.h>
#include <stdint.h>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    static bool quiet = (ZuLog::setLevel(ZU_LOG_SILENT), true);
    (void)quiet;
    if (size > (1 << 20)) return 0;
    std::vector<uint8_t> copy(bytes, bytes + size);
    MemoryDataStream stream("fuzz.skeleton", copy.data(), copy.size());
    Skeleton skeleton;
    SkeletonSerializer reader;
    if (!reader.importSkeleton(stream, &skeleton)) return 0;
    AnimationStateSet states;
    skeleton._initAnimationState(&states);
    for (const std::string& name : states.getAnimationStateNames()) {
        AnimationState* state = states.getAnimationState(name);
        state->setEnabled(true);
        state->setTimePosition(state->getLength() * 0.6f);
    }
    skeleton.setAnimationState(states);
    std::vector<ZuMatrix4> matrices(skeleton.getNumBones());
    if (!matrices.empty()) skeleton._getBoneMatrices(matrices.data());
    return 0;
}
