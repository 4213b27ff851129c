#include "LandmarkFile.h"

#include "platform/ZuLog.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

namespace {

bool readPoint(const rapidjson::Value& value, LandmarkFile::Point& out) {
    if (!value.IsArray() || value.Size() != 2 || !value[0].IsNumber() || !value[1].IsNumber()) return false;
    out.x = value[0].GetFloat();
    out.y = value[1].GetFloat();
    return std::isfinite(out.x) && std::isfinite(out.y);
}

// The mean of one eye's six points stands in for a pupil the tracker did not give.
LandmarkFile::Point eyeCentre(const LandmarkFile::Face& face, int first) {
    LandmarkFile::Point centre;
    for (int i = first; i < first + 6; ++i) {
        centre.x += face.points[i].x / 6.0f;
        centre.y += face.points[i].y / 6.0f;
    }
    return centre;
}

} // namespace

bool LandmarkFile::refuse(const std::string& why) {
    m_error = m_source + ": " + why;
    m_faces.clear();
    QZLOGE("%s", m_error.c_str());
    return false;
}

bool LandmarkFile::load(const std::string& path) {
    m_source = path;
    std::ifstream file(path, std::ios::binary);
    if (!file) return refuse("cannot be read");
    std::stringstream text;
    text << file.rdbuf();
    return parse(text.str());
}

bool LandmarkFile::parse(const std::string& json) {
    m_error.clear();
    m_faces.clear();
    rapidjson::Document doc;
    doc.Parse(json.c_str(), json.size());
    if (doc.HasParseError() || !doc.IsObject()) return refuse("not a JSON object");
    if (!doc.HasMember("width") || !doc["width"].IsInt() || !doc.HasMember("height") || !doc["height"].IsInt())
        return refuse("needs integer \"width\" and \"height\" (the image size in pixels)");
    m_width = doc["width"].GetInt();
    m_height = doc["height"].GetInt();
    if (m_width < 1 || m_height < 1 || m_width > 16384 || m_height > 16384)
        return refuse("image size " + std::to_string(m_width) + " x " + std::to_string(m_height) +
                      " is outside 1 to 16384");
    if (!doc.HasMember("faces") || !doc["faces"].IsArray()) return refuse("needs a \"faces\" array");
    const rapidjson::Value& faces = doc["faces"];
    if (faces.Size() > static_cast<rapidjson::SizeType>(kMaxFaces))
        return refuse("has " + std::to_string(faces.Size()) + " faces; a record carries at most " +
                      std::to_string(kMaxFaces));

    std::vector<Face> parsed;
    for (rapidjson::SizeType f = 0; f < faces.Size(); ++f) {
        const std::string where = "face " + std::to_string(f) + ": ";
        const rapidjson::Value& entry = faces[f];
        if (!entry.IsObject()) return refuse(where + "not an object");
        if (!entry.HasMember("landmarks68") || !entry["landmarks68"].IsArray() ||
            entry["landmarks68"].Size() != kPointCount)
            return refuse(where + "\"landmarks68\" must hold 68 [x, y] points");
        Face face;
        const rapidjson::Value& points = entry["landmarks68"];
        for (int i = 0; i < kPointCount; ++i)
            if (!readPoint(points[i], face.points[i]))
                return refuse(where + "landmark " + std::to_string(i) + " is not a pair of finite numbers");
        // A point far off the picture means a wrong scheme or units, not a face.
        for (const Point& p : face.points)
            if (p.x < -m_width || p.x > 2.0f * m_width || p.y < -m_height || p.y > 2.0f * m_height)
                return refuse(where + "landmarks lie far outside the " + std::to_string(m_width) + " x " +
                              std::to_string(m_height) + " image");

        if (entry.HasMember("pupils")) {
            const rapidjson::Value& pupils = entry["pupils"];
            if (!pupils.IsArray() || pupils.Size() != 2 || !readPoint(pupils[0], face.pupils[0]) ||
                !readPoint(pupils[1], face.pupils[1]))
                return refuse(where + "\"pupils\" must be two [x, y] points");
        } else {
            face.pupils[0] = eyeCentre(face, 36);
            face.pupils[1] = eyeCentre(face, 42);
        }

        face.boxLeft = face.boxRight = face.points[0].x;
        face.boxTop = face.boxBottom = face.points[0].y;
        for (const Point& p : face.points) {
            face.boxLeft = std::min(face.boxLeft, p.x);
            face.boxRight = std::max(face.boxRight, p.x);
            face.boxTop = std::min(face.boxTop, p.y);
            face.boxBottom = std::max(face.boxBottom, p.y);
        }
        if (entry.HasMember("box")) {
            const rapidjson::Value& box = entry["box"];
            const char* keys[] = {"x", "y", "width", "height"};
            float v[4];
            for (int k = 0; k < 4; ++k) {
                if (!box.IsObject() || !box.HasMember(keys[k]) || !box[keys[k]].IsNumber())
                    return refuse(where + "\"box\" needs numbers x, y, width and height");
                v[k] = box[keys[k]].GetFloat();
            }
            if (!(v[2] > 0.0f) || !(v[3] > 0.0f) || !std::isfinite(v[0] + v[1] + v[2] + v[3]))
                return refuse(where + "\"box\" must have a positive finite size");
            face.boxLeft = v[0];
            face.boxTop = v[1];
            face.boxRight = v[0] + v[2];
            face.boxBottom = v[1] + v[3];
        }
        parsed.push_back(face);
    }
    m_faces = parsed;
    return true;
}
