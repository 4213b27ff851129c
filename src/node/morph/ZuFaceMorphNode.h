#pragma once

#include "scene/ZuNode.h"

class ZuFboSwapRenderObject;
class ZuMaterial;
class ZuNewMorphData;
class ZuPerson;
class ZuRenderMeshDvid;
class ZuRenderObject;

// Reshapes the face of person 1 on the processor (AS landmarks): a grid of
// 49 x 87 vertices covers the screen and the picture is drawn through it.
// Every tick the vertices near the 17 contour points are pushed along the
// contour's normal, by the class's table of how far each point pushes
// (negative: outwards, the face grows) and how wide the push reaches; the
// bear shapes also squeeze the lower face up towards the eyes. This class
// pushes nothing: drawn through the resting grid the picture is unchanged.
//
// The grid's texture coordinates are its positions mapped to 0..1, drawn
// with the full-screen program without a flip: row 0 of the grid is the
// bottom of the picture, so the picture comes out the way up it went in.
class ZuFaceMorphNode : public ZuNode {
public:
    static const int kGridWidth = 48;   // cells
    static const int kGridHeight = 86;  // cells
    static const int kVertexCount = (kGridWidth + 1) * (kGridHeight + 1);
    static const int kIndexCount = kGridWidth * kGridHeight * 6;
    static const int kContourHalf = 8;
    static const int kContourPoints = 2 * kContourHalf + 1;

    explicit ZuFaceMorphNode(ZuAppMain* app);
    ~ZuFaceMorphNode() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;
    // Kind 44 for this resource id whose name starts this node's name sets
    // the slimming strength of the landmark rules.
    bool procEvent(ZuEvent* event) override;

    // value clamped to 0..1 (logged when outside); each class maps it to
    // its strength. Non-null arrays of 8 replace the push tables.
    virtual void setParameter(float value, float* deltaX, float* deltaY);
    // Strength 3, bulge off.
    virtual void reset();

    void enableBulge();
    void disableBulge();
    // Both arrays of 8 or neither; the cycle in seconds (a full swell and
    // return). Enables the bulge.
    void setBulgeArray(const float* x, const float* y, float cycle);
    void setBulgeCycle(float cycle);

    // The rules of the landmark morph (copied); refused whole, with a log
    // line, when a rule names a vertex outside 0..127.
    bool setNewMorphData(const ZuNewMorphData* list, int count);
    void setNewSlimStrength(float value);
    void setNewShortStrength(float value);
    void setNewShrinkNoseStrength(float value);
    void setNewShrinkMouthStrength(float value);
    const ZuNewMorphData* getNewMorphData() const { return newMorphList; }
    int getNewMorphCount() const { return newMorphCount; }

    float getParameter() const { return parameter; }
    float getStrength() const { return strength; }
    void setStrength(float value) { strength = value; }
    bool isBulgeEnabled() const { return bulgeEnabled; }
    float getBulgeRatio() const { return bulgeRatio; }
    bool getDrawFlag() const { return drawFlag; }
    const float* getDeltaX() const { return deltaX; }
    const float* getDeltaY() const { return deltaY; }
    // The grid this tick, (x, y) pairs in -1..1, vertex i + 49 j.
    const float* getWorkingPositions() const { return working; }
    const float* getRestPositions() const { return rest; }
    // Contour point i (0..16) and the centre (17), in -1..1.
    const float* getContour() const { return contour; }

protected:
    virtual void doMorphInit();
    virtual void doRenderMeshInit();
    // Radius of a push from the spacing of the contour points by the chin.
    virtual float modifyDD(float r);
    // Reach of each push as a multiple of the radius.
    virtual void modifyR0Factor(float* factors);
    // How far each contour point pushes, before the face width and strength.
    virtual void modifyDeltaCoref(float* dX, float* dY);
    virtual void doSlim(int width, int height, float dt);
    virtual void doBear() {}

    // The upright picture's size in camera pixels, which the landmarks use.
    void pictureSize(int& width, int& height) const;
    bool getFaceContourData(ZuPerson* person, int width, int height);
    bool isCrossBorder() const;
    bool isYaw() const;
    void initBulge();
    // Adds the push of one contour point p along dir to the working grid.
    void push(const float p[2], const float dir[2], float r, float reach, float sx, float sy, float mx);

    ZuMaterial* material = nullptr;
    ZuRenderObject* renderObject = nullptr;
    ZuRenderMeshDvid* renderMesh = nullptr;
    ZuFboSwapRenderObject* swapObject = nullptr;
    int contourHalf = kContourHalf;
    float strength = 3.0f;
    int gridWidth = kGridWidth;
    int gridHeight = kGridHeight;
    bool bulgeEnabled = false, bulgeRising = true, bulgeFirst = true;
    float bulgePhase = 0.0f, bulgeCycle = 1.2f, bulgeRatio = 0.0f;
    float bulgeX[8] = {}, bulgeY[8] = {};
    float parameter = 0.0f;
    float working[kVertexCount * 2] = {};
    float rest[kVertexCount * 2] = {};
    float texcoords[kVertexCount * 2] = {};
    uint16_t indices[kIndexCount] = {};
    bool drawFlag = false;
    float contour[(kContourPoints + 1) * 2] = {};
    ZuNewMorphData* newMorphList = nullptr;
    int newMorphCount = 0;

    // The class's tables: push per contour point, radius scale and reach.
    float deltaX[8] = {}, deltaY[8] = {};
    float ddScale = 0.5f;
    float reachFactor[8] = {2, 2, 2, 2, 2, 2, 2, 2};

    // value clamped to 0..1, with a log line when it was not; NaN is 0.
    float clampParameter(float value) const;

private:
    bool meshReady = false;
};
