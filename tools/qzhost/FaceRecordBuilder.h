#pragma once

#include "LandmarkFile.h"

#include <cstdint>
#include <string>
#include <vector>

// Turns 68-point faces (iBUG order plus pupils, image pixels, y down) into
// the flat record one of the four tracker back ends pushes: the landmarks
// laid out as that back end numbers them, a rectangle, head angles and, for
// AS and Self, the extra fields those trackers append. See
// docs/face-landmarks.md for how each landmark is derived.
class FaceRecordBuilder {
public:
    enum class Backend { AS, ST, FP, Self };

    struct Angles {
        float roll = 0.0f;  // degrees, counter-clockwise in the y-up picture
        float yaw = 0.0f;   // degrees, positive with the nose towards image-right
        float pitch = 0.0f; // degrees, positive with the nose towards the brows
    };

    // "as", "st", "fp" or "self".
    static bool parseBackend(const std::string& name, Backend* out);
    static const char* backendName(Backend backend);
    // The DETECTTYPE value the engine is switched to for this back end.
    static int detectType(Backend backend);
    static int pointCount(Backend backend);

    // One face's landmarks in the back end's numbering, image pixels, y down.
    static std::vector<LandmarkFile::Point> layout(const LandmarkFile::Face& face, Backend backend);
    // Rough head pose from the landmarks, as the engine should see it.
    static Angles estimateAngles(const LandmarkFile::Face& face);

    // The whole record: count, then each face block (and the AS second part)
    // exactly as the engine's parser reads it. At most four faces are written.
    static std::vector<uint8_t> build(const std::vector<LandmarkFile::Face>& faces, Backend backend);
};
