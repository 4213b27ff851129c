#include "node/filter/ZuAlphaMattingMaterial.h"

#include <GLES2/gl2.h>

void ZuAlphaMattingMaterial::setColor(const color& min, const color& max, const color& out) {
    colorMin = min;
    colorMax = max;
    colorOut = out;
    uniformsSet = false;
}

void ZuAlphaMattingMaterial::setColorMin(const color& value) {
    colorMin = value;
    uniformsSet = false;
}

void ZuAlphaMattingMaterial::setColorMax(const color& value) {
    colorMax = value;
    uniformsSet = false;
}

void ZuAlphaMattingMaterial::setColorOut(const color& value) {
    colorOut = value;
    uniformsSet = false;
}

void ZuAlphaMattingMaterial::_refreshInner() {
    // Uniform values stay with the program between draws, and the class
    // bounds are the same for every matting material that shares it.
    if (!uniformsSet) {
        glUniform4f(uniformLocation("colorMin"), colorMin.r, colorMin.g, colorMin.b, colorMin.a);
        glUniform4f(uniformLocation("colorMax"), colorMax.r, colorMax.g, colorMax.b, colorMax.a);
        glUniform4f(uniformLocation("colorOut"), colorOut.r, colorOut.g, colorOut.b, colorOut.a);
        const struct {
            const char* name;
            float value;
        } values[] = {
            {"blackValueMin", blackValueMin}, {"blackValueMax", blackValueMax},
            {"graySaturationMin", graySaturationMin}, {"graySaturationMax", graySaturationMax},
            {"grayValueMin", grayValueMin}, {"grayValueMax", grayValueMax},
            {"whiteSaturationMin", whiteSaturationMin}, {"whiteSaturationMax", whiteSaturationMax},
            {"whiteValueMin", whiteValueMin}, {"whiteValueMax", whiteValueMax},
            {"redHueMin", redHueMin}, {"redHueMax", redHueMax},
            {"orangeHueMin", orangeHueMin}, {"orangeHueMax", orangeHueMax},
            {"yellowHueMin", yellowHueMin}, {"yellowHueMax", yellowHueMax},
            {"greenHueMin", greenHueMin}, {"greenHueMax", greenHueMax},
            {"cyanHueMin", cyanHueMin}, {"cyanHueMax", cyanHueMax},
            {"blueHueMin", blueHueMin}, {"blueHueMax", blueHueMax},
            {"purpleHueMin", purpleHueMin}, {"purpleHueMax", purpleHueMax},
            {"pinkHueMin", pinkHueMin}, {"pinkHueMax", pinkHueMax},
        };
        for (const auto& v : values) glUniform1f(uniformLocation(v.name), v.value);
        uniformsSet = true;
    }
    ZuGMaterial::_refreshInner();
}
