#pragma once

#include <string>
#include <vector>

// A face tracker's output for one photo, as tools/facetrack writes it: per
// face the 68 points of the iBUG order and the two pupils, in image pixels
// with the origin at the top-left corner and y down. qzhost turns it into
// the records a phone tracker would push.
class LandmarkFile {
public:
    static constexpr int kPointCount = 68;
    // A record carries at most this many faces.
    static constexpr int kMaxFaces = 4;

    struct Point {
        float x = 0.0f;
        float y = 0.0f;
    };

    struct Face {
        Point points[kPointCount];
        // Left and right as seen in the image.
        Point pupils[2];
        // The detector's face box; when absent, the box around the points.
        float boxLeft = 0.0f, boxTop = 0.0f, boxRight = 0.0f, boxBottom = 0.0f;
    };

    // False after a logged refusal; error() then says what is wrong.
    bool load(const std::string& path);
    bool parse(const std::string& json);

    const std::string& error() const { return m_error; }
    int width() const { return m_width; }
    int height() const { return m_height; }
    const std::vector<Face>& faces() const { return m_faces; }

private:
    bool refuse(const std::string& why);

    std::string m_source = "landmark text";
    std::string m_error;
    int m_width = 0;
    int m_height = 0;
    std::vector<Face> m_faces;
};
