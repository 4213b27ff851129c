#pragma once

#include "render/material/ZuGMaterial.h"

// The sketch look's settings: brightness bounds of the three tones and the
// edge bound, kept in 0..1 units (given in levels of 255), and the step
// between samples in texture units.
class ZuFilterSketchMaterial : public ZuGMaterial {
public:
    explicit ZuFilterSketchMaterial(ZuAppMain* app) : ZuGMaterial(app, "filterSketch") {}

    void _refreshInner() override;

    void setThresholdUpper(float levels) { thresholdUpper = levels / 255.0f; }
    void setThresholdDown(float levels) { thresholdDown = levels / 255.0f; }
    void setThresholdEdge(float levels) { thresholdEdge = levels / 255.0f; }
    void setSamperStepX(float step) { stepX = step; }
    void setSamperStepY(float step) { stepY = step; }
    float getThresholdUpper() const { return thresholdUpper; }
    float getThresholdDown() const { return thresholdDown; }
    float getThresholdEdge() const { return thresholdEdge; }
    float getStepX() const { return stepX; }
    float getStepY() const { return stepY; }

private:
    float thresholdUpper = 0.0f;
    float thresholdDown = 0.0f;
    float thresholdEdge = 0.0f;
    float stepX = 0.0f;
    float stepY = 0.0f;
};
