#pragma once

#include "basesys/ZuRefObject.h"
#include "basesys/qzString.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/math/ZuColor.h"

class ZuFboObject;
class ZuRenderCmd;
class ZuRenderStream;

// What one scene recorded for the frame: 30 numbered streams, replayed in
// ascending number and emptied. The number, not the place in the scene
// graph, orders the passes; inside a stream commands keep recording order.
// No sorting and no state caching happen here.
class ZuRenderScene : public ZuRefObject {
public:
    explicit ZuRenderScene(const char* name);
    ~ZuRenderScene() override;

    // Stores itself in the command and appends it; a stream number outside
    // 0 to 29 releases the command unplayed.
    void pushRenderCmd(RENDERSTREAMTYPE stream, ZuRenderCmd* cmd);
    // Replays and empties every stream. A hidden scene only empties them:
    // nothing is drawn or cleared for it.
    void direct_render();
    // Throws away everything recorded and starts with fresh streams.
    void refresh();

    void setVisible(bool value) { visible = value; }
    bool getVisible() const { return visible; }
    void setWinSize(int width, int height);
    int getWinWidth() const { return winWidth; }
    int getWinHeight() const { return winHeight; }
    const qz::string& getName() const { return name; }
    ZuRenderStream* getStream(int stream) const;
    // Commands waiting in all streams.
    int pendingCount() const;

    ZuColor clearColor;
    // The framebuffer that commands of this scene have bound now (null: the
    // window); reset at the start of every replay.
    ZuFboObject* curFbo = nullptr;

private:
    void makeStreams();
    void dropStreams();

    ZuRenderStream* streams[RS_STREAM_COUNT] = {};
    qz::string name;
    bool visible = true;
    int winWidth = 1;
    int winHeight = 1;
};
