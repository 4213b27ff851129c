#include "FaceRecordBuilder.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

using Point = LandmarkFile::Point;
using Face = LandmarkFile::Face;

constexpr float kRadToDeg = 57.29578f;

Point add(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
Point sub(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
Point scale(Point a, float s) { return {a.x * s, a.y * s}; }
Point lerp(Point a, Point b, float t) { return add(a, scale(sub(b, a), t)); }
float dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
float length(Point a) { return std::sqrt(dot(a, a)); }
Point normalised(Point a) {
    float n = length(a);
    return n > 0.0f ? scale(a, 1.0f / n) : Point{1.0f, 0.0f};
}

// A uniform Catmull-Rom curve through the points, at parameter s from 0 to
// n - 1 (n for a closed curve): the landmark runs of a tracker are samples
// of smooth outlines, so in-between points follow the bend, not the chord.
Point curveAt(const std::vector<Point>& pts, float s, bool closed) {
    const int n = static_cast<int>(pts.size());
    const int last = closed ? n : n - 1;
    s = std::min(std::max(s, 0.0f), static_cast<float>(last));
    int i = std::min(static_cast<int>(std::floor(s)), last - 1);
    float t = s - i;
    auto at = [&](int k) -> Point {
        if (closed) return pts[((k % n) + n) % n];
        // Open ends continue straight, by reflection.
        if (k < 0) return sub(scale(pts[0], 2.0f), pts[1]);
        if (k >= n) return sub(scale(pts[n - 1], 2.0f), pts[n - 2]);
        return pts[k];
    };
    Point p0 = at(i - 1), p1 = at(i), p2 = at(i + 1), p3 = at(i + 2);
    float t2 = t * t, t3 = t2 * t;
    Point r = scale(p1, 2.0f);
    r = add(r, scale(sub(p2, p0), t));
    r = add(r, scale(add(sub(scale(p0, 2.0f), scale(p1, 5.0f)), sub(scale(p2, 4.0f), p3)), t2));
    r = add(r, scale(add(sub(scale(p1, 3.0f), p0), sub(p3, scale(p2, 3.0f))), t3));
    return scale(r, 0.5f);
}

std::vector<Point> run(const Face& face, int first, int count) {
    return std::vector<Point>(face.points + first, face.points + first + count);
}

// count points spread evenly over an open run, both ends kept.
void resample(const std::vector<Point>& pts, int count, std::vector<Point>& out) {
    const float step = static_cast<float>(pts.size() - 1) / (count - 1);
    for (int k = 0; k < count; ++k) out.push_back(curveAt(pts, k * step, false));
}

// The face's own axes: along the eye line towards image-right, and down
// towards the chin; roll turns both.
struct FaceAxes {
    Point across;
    Point down;
};

FaceAxes axesOf(const Face& face) {
    FaceAxes axes;
    axes.across = normalised(sub(face.pupils[1], face.pupils[0]));
    axes.down = {-axes.across.y, axes.across.x};
    return axes;
}

// A brow's lower edge: the tracked (upper) edge moved down by a fifth of
// the brow-to-pupil distance, the brow thickness of an average face.
// fromOuter: curve parameters 0 (outer end) to 1 (inner end).
void browLowerEdge(const Face& face, bool leftBrow, std::initializer_list<float> fromOuter, std::vector<Point>& out) {
    std::vector<Point> brow = leftBrow ? run(face, 17, 5) : run(face, 22, 5);
    if (!leftBrow) std::reverse(brow.begin(), brow.end()); // outer end first
    const Point pupil = face.pupils[leftBrow ? 0 : 1];
    const float thickness = 0.2f * length(sub(brow[2], pupil));
    const Point shift = scale(axesOf(face).down, thickness);
    for (float t : fromOuter) out.push_back(add(curveAt(brow, t * 4.0f, false), shift));
}

// An eye outline sampled round at curve parameters (0 is the first iBUG
// point of that eye, each step one iBUG point further).
void eyeAt(const Face& face, bool leftEye, std::initializer_list<float> params, std::vector<Point>& out) {
    const std::vector<Point> eye = run(face, leftEye ? 36 : 42, 6);
    for (float s : params) out.push_back(curveAt(eye, s, true));
}

// Points the 68 do not cover near the nose are placed on the nose's own
// frame: origin at the nose bottom centre (iBUG 33), one unit across is a
// third of the nose bottom width, one unit up a 0.48th of the way from there
// to the bridge top (iBUG 27). These are the proportions the standard faces
// under assets/shader/mesh/ are drawn with, so the points land where the
// standard face has them.
Point onNose(const Face& face, float u, float v) {
    const Point origin = face.points[33];
    const Point across = scale(sub(face.points[35], face.points[31]), 1.0f / 0.3f);
    const Point up = scale(sub(face.points[27], origin), 1.0f / 0.48f);
    return add(origin, add(scale(across, u), scale(up, v + 0.28f)));
}

void noseEllipse(const Face& face, float cu, std::initializer_list<float> degrees, std::vector<Point>& out) {
    for (float a : degrees) {
        float r = a / kRadToDeg;
        out.push_back(onNose(face, cu + 0.07f * std::cos(r), -0.15f + 0.1f * std::sin(r)));
    }
}

void copy(const Face& face, int first, int count, std::vector<Point>& out) {
    for (int i = first; i < first + count; ++i) out.push_back(face.points[i]);
}

std::vector<Point> layoutST(const Face& face) {
    std::vector<Point> p;
    const std::vector<Point> jaw = run(face, 0, 17);
    for (int k = 0; k < 33; ++k) p.push_back(curveAt(jaw, k * 0.5f, false)); // 0-32
    copy(face, 17, 10, p);                                                    // 33-42 brows
    copy(face, 27, 4, p);                                                     // 43-46 bridge
    copy(face, 31, 5, p);                                                     // 47-51 nose bottom
    copy(face, 36, 12, p);                                                    // 52-63 eyes
    browLowerEdge(face, true, {1.0f, 2.0f / 3, 1.0f / 3, 0.0f}, p);           // 64-67 inner to outer
    browLowerEdge(face, false, {0.0f, 1.0f / 3, 2.0f / 3, 1.0f}, p);          // 68-71 outer to inner
    eyeAt(face, true, {1.5f, 4.5f}, p);                                       // 72, 73 top, bottom
    p.push_back(lerp(face.pupils[0], face.points[39], 0.5f));                 // 74
    eyeAt(face, false, {1.5f, 4.5f}, p);                                      // 75, 76
    p.push_back(lerp(face.pupils[1], face.points[42], 0.5f));                 // 77
    p.push_back(onNose(face, -0.1f, 0.0f));                                   // 78-81 nose sides
    p.push_back(onNose(face, 0.1f, 0.0f));
    p.push_back(onNose(face, -0.14f, -0.12f));
    p.push_back(onNose(face, 0.14f, -0.12f));
    p.push_back(onNose(face, -0.2f, -0.2f));                                  // 82, 83 wings
    p.push_back(onNose(face, 0.2f, -0.2f));
    copy(face, 48, 20, p);                                                    // 84-103 lips
    p.push_back(face.pupils[0]);                                              // 104, 105
    p.push_back(face.pupils[1]);
    return p;
}

std::vector<Point> layoutAS(const Face& face) {
    std::vector<Point> p;
    const std::vector<Point> jaw = run(face, 0, 17);
    resample(jaw, 19, p);                                                     // 0-18, chin 9
    copy(face, 17, 5, p);                                                     // 19-23
    browLowerEdge(face, true, {1.0f, 0.75f, 0.5f, 0.25f, 0.0f}, p);           // 24-28 inner to outer
    resample(run(face, 22, 5), 6, p);                                         // 29-34 inner to outer
    browLowerEdge(face, false, {0.0f, 1.0f / 3, 2.0f / 3, 1.0f}, p);          // 35-38 outer to inner
    const std::initializer_list<float> twelve = {0, 0.5f, 1, 1.5f, 2, 2.5f, 3, 3.5f, 4, 4.5f, 5, 5.5f};
    eyeAt(face, true, twelve, p);                                             // 39-50 from the outer corner
    eyeAt(face, false, twelve, p);                                            // 51-62 from the inner corner
    noseEllipse(face, -0.14f, {90, 150, 210, 270, 330, 30}, p);               // 63-68
    noseEllipse(face, 0.14f, {90, 30, 330, 270, 210, 150}, p);                // 69-74
    copy(face, 48, 20, p);                                                    // 75-94 lips
    p.push_back(face.pupils[0]);                                              // 95, 96
    p.push_back(face.pupils[1]);
    copy(face, 27, 4, p);                                                     // 97-99 bridge, 100 tip
    return p;
}

std::vector<Point> layoutSelf(const Face& face) {
    std::vector<Point> p;
    copy(face, 0, 68, p);
    p.push_back(face.pupils[0]);
    p.push_back(face.pupils[1]);
    return p;
}

// Little-endian writer for the record.
class Writer {
public:
    explicit Writer(std::vector<uint8_t>& bytes) : m_bytes(bytes) {}
    void i32(int32_t v) {
        uint32_t u;
        std::memcpy(&u, &v, 4);
        for (int k = 0; k < 4; ++k) m_bytes.push_back(static_cast<uint8_t>(u >> (8 * k)));
    }
    void f32(float v) {
        int32_t i;
        std::memcpy(&i, &v, 4);
        i32(i);
    }
    void zeros(int n) { m_bytes.insert(m_bytes.end(), static_cast<size_t>(n), 0); }

private:
    std::vector<uint8_t>& m_bytes;
};

int32_t rounded(float v) { return static_cast<int32_t>(std::lround(v)); }

void writeIdentity(Writer& w) {
    for (int k = 0; k < 16; ++k) w.f32(k % 5 == 0 ? 1.0f : 0.0f);
}

} // namespace

bool FaceRecordBuilder::parseBackend(const std::string& name, Backend* out) {
    const struct {
        const char* name;
        Backend backend;
    } names[] = {{"as", Backend::AS}, {"st", Backend::ST}, {"fp", Backend::FP}, {"self", Backend::Self}};
    for (const auto& entry : names)
        if (name == entry.name) {
            *out = entry.backend;
            return true;
        }
    return false;
}

const char* FaceRecordBuilder::backendName(Backend backend) {
    switch (backend) {
    case Backend::AS: return "as";
    case Backend::ST: return "st";
    case Backend::FP: return "fp";
    case Backend::Self: return "self";
    }
    return "?";
}

int FaceRecordBuilder::detectType(Backend backend) {
    switch (backend) {
    case Backend::AS: return 1;
    case Backend::ST: return 2;
    case Backend::FP: return 3;
    case Backend::Self: return 4;
    }
    return 0;
}

int FaceRecordBuilder::pointCount(Backend backend) {
    switch (backend) {
    case Backend::AS: return 101;
    case Backend::ST:
    case Backend::FP: return 106;
    case Backend::Self: return 70;
    }
    return 0;
}

std::vector<LandmarkFile::Point> FaceRecordBuilder::layout(const Face& face, Backend backend) {
    switch (backend) {
    case Backend::AS: return layoutAS(face);
    case Backend::ST:
    case Backend::FP: return layoutST(face);
    case Backend::Self: return layoutSelf(face);
    }
    return {};
}

FaceRecordBuilder::Angles FaceRecordBuilder::estimateAngles(const Face& face) {
    Angles angles;
    const FaceAxes axes = axesOf(face);
    // Image y runs down, the engine's up: negate y for a counter-clockwise roll.
    angles.roll = std::atan2(-axes.across.y, axes.across.x) * kRadToDeg;

    // Yaw: how far the nose tip sits off the middle of the jaw line, as a
    // share of half the jaw width, read as the sine of the turn.
    const Point jawMid = lerp(face.points[0], face.points[16], 0.5f);
    const float halfWidth = 0.5f * length(sub(face.points[16], face.points[0]));
    const Point noseTip = face.points[30];
    if (halfWidth > 0.0f) {
        float side = dot(sub(noseTip, jawMid), axes.across) / halfWidth;
        angles.yaw = std::asin(std::min(std::max(side, -1.0f), 1.0f)) * kRadToDeg;
    }

    // Pitch: where the nose tip lies between the eye line and the mouth
    // corners; a frontal face has it at about 0.55 of the way down.
    const Point eyeMid = lerp(face.pupils[0], face.pupils[1], 0.5f);
    const Point mouthMid = lerp(face.points[48], face.points[54], 0.5f);
    const float eyeToMouth = dot(sub(mouthMid, eyeMid), axes.down);
    if (eyeToMouth > 0.0f) {
        const float share = dot(sub(noseTip, eyeMid), axes.down) / eyeToMouth;
        float lift = 2.0f * (0.55f - share);
        angles.pitch = std::asin(std::min(std::max(lift, -1.0f), 1.0f)) * kRadToDeg;
    }
    return angles;
}

std::vector<uint8_t> FaceRecordBuilder::build(const std::vector<Face>& faces, Backend backend) {
    const int count = static_cast<int>(std::min<size_t>(faces.size(), LandmarkFile::kMaxFaces));
    const bool floatPoints = backend == Backend::FP || backend == Backend::Self;
    std::vector<uint8_t> bytes;
    Writer w(bytes);
    w.i32(count);
    std::vector<std::vector<Point>> layouts;
    for (int f = 0; f < count; ++f) {
        const Face& face = faces[f];
        Angles a = estimateAngles(face);
        // The parsers flip some signs on the way in (ST yaw and pitch, FP
        // pitch); send them pre-flipped so every back end shows the same pose.
        float yaw = backend == Backend::ST ? -a.yaw : a.yaw;
        float pitch = backend == Backend::ST || backend == Backend::FP ? -a.pitch : a.pitch;
        w.f32(a.roll);
        w.f32(yaw);
        w.f32(pitch);
        w.i32(rounded(face.boxLeft));
        w.i32(rounded(face.boxTop));
        w.i32(rounded(face.boxRight));
        w.i32(rounded(face.boxBottom));
        layouts.push_back(layout(face, backend));
        for (const Point& p : layouts.back()) {
            if (floatPoints) {
                w.f32(p.x);
                w.f32(p.y);
            } else {
                w.i32(rounded(p.x));
                w.i32(rounded(p.y));
            }
        }
        if (backend == Backend::Self) {
            // The first point set: the landmarks again with z 0; the other
            // sets, pairs and the trailing word have no source in 68 points.
            for (const Point& p : layouts.back()) {
                w.f32(p.x);
                w.f32(p.y);
                w.f32(0.0f);
            }
            w.zeros((28 + 28 + 6 + 6) * 12 + 8 * 8 + 4);
        }
    }
    if (backend == Backend::AS) {
        // Second part: the count again, then per face eye data (none),
        // identity model, view and projection, and the landmarks with z 0.
        w.i32(count);
        for (int f = 0; f < count; ++f) {
            w.zeros(24);
            for (int m = 0; m < 3; ++m) writeIdentity(w);
            for (const Point& p : layouts[f]) {
                w.f32(p.x);
                w.f32(p.y);
                w.f32(0.0f);
            }
        }
    }
    return bytes;
}
