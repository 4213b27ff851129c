#pragma once

#include "basesys/ZuObject.h"
#include "basesys/qzArray.h"

class ZuRenderCmd;

// The commands of one stream in recording order. The stream owns the one
// reference each command was made with.
class ZuRenderStream : public ZuObject {
public:
    ~ZuRenderStream() override { clear(); }

    void push(ZuRenderCmd* cmd) { cmds.push_back(cmd); }
    // Replays every command in order, releasing each right after it ran.
    void replay();
    // Releases every command unplayed.
    void clear();
    uint32_t size() const { return cmds.size(); }
    ZuRenderCmd* at(uint32_t i) const { return cmds[i]; }

private:
    qz::array<ZuRenderCmd*> cmds;
};
