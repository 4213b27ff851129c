#pragma once

#include "basesys/ZuRefObject.h"
#include "basesys/qzString.h"
#include "logicsys/Animate2D/tANIPOSMODE.h"

class ZuAppMain;
class ZuMat4;
class ZuMaterial;
class ZuRenderMesh;
class ZuTexture;
class ZuTimeLine;

// A 2D animation driven by a time line: steps it, hands the current image to
// a material and lays the quad out in a mesh. It announces its play, pause,
// reset, completion and stop as animation events in the second pool, so that
// they reach listeners after the pass that caused them.
class ZuAnimate : public ZuRefObject {
public:
    explicit ZuAnimate(ZuAppMain* app) : app(app) {}
    ~ZuAnimate() override;

    virtual void init() {}
    virtual void destroy();

    // Back to the first frame; "aniReset" when there is a time line.
    void reset();
    // reset, then "aniPlay".
    void play();
    void pause();
    void stop();
    void complete();
    // Steps the time line by seconds and refreshes mesh and material; the
    // matrix, when given, carries the quad onto a face. False when the
    // animation stopped in this call.
    bool update(float seconds, ZuRenderMesh* mesh, ZuMaterial* material, ZuMat4* matrix, tANIPOSMODE mode);

    void setLoop(bool value) { loop = value; }
    bool getLoop() const { return loop; }
    void setStandardLen(float value) { standardLen = value; }
    float getStandardLen() const { return standardLen; }
    void setScaleX(float value) { scaleX = value; }
    float getScaleX() const { return scaleX; }
    // Takes ownership; the previous time line is deleted.
    void setM_TimeLine(ZuTimeLine* timeLine);
    ZuTimeLine* getTimeLine() const { return timeLine; }
    void setresid(int id) { resID = id; }
    int getresid() const { return resID; }
    void setsceneName(const char* name) { sceneName = name ? name : ""; }
    const qz::string& getsceneName() const { return sceneName; }
    void setaniName(const char* name);
    const qz::string& getaniName() const { return aniName; }
    int getid() const { return id; }
    int getpersonID() const { return personID; }

    float getSrcWidth() const { return srcWidth; }
    float getSrcHeight() const { return srcHeight; }
    float getWidth() const { return width; }
    float getHeight() const { return height; }
    bool isCompletedThisTick() const { return completedThisTick; }
    bool isStoppedThisTick() const { return stoppedThisTick; }

    // Carries a point of the face's own plane onto the picture. A tracker's
    // face matrix holds the face axes as its rows, so the point is taken as
    // a row vector: (x, y, 0, 1) times the matrix.
    static void turnByPose(const ZuMat4& pose, float& x, float& y);

protected:
    void sendEvent(const char* eventName);
    // Drawn size from the source size and the placement mode.
    void refreshSize(tANIPOSMODE mode);
    void refreshPlain(ZuRenderMesh* mesh, const ZuMat4* matrix);
    void refreshAtlas(ZuTexture* region, ZuRenderMesh* mesh, const ZuMat4* matrix);
    static void writeQuad(ZuRenderMesh* mesh, const float (&xy)[4][2], const float (&uv)[4][2],
                          const ZuMat4* matrix);

    ZuAppMain* app;
    int id = 0;
    float width = 128.0f;
    float height = 128.0f;
    int personID = -1;
    bool loop = true;
    float standardLen = 0.0f;
    float scaleX = 0.0f;
    qz::string aniName;
    float srcWidth = 0.0f;
    float srcHeight = 0.0f;
    bool completedThisTick = false;
    bool stoppedThisTick = false;
    int resID = -1;
    qz::string sceneName;
    ZuTimeLine* timeLine = nullptr;
};
