#pragma once

#include "scene/ZuActionBase.h"

// Runs three actions one after the other, one of them per frame. A sequence
// missing any of its three actions counts as ended and runs nothing.
class ZuSequanceAction : public ZuActionBase {
public:
    ZuSequanceAction(ZuActionBase* first, ZuActionBase* second, ZuActionBase* third);
    ~ZuSequanceAction() override;

    void run(ZuNode* node, float delta) override;
    bool isEnd() override;

private:
    ZuActionBase* m_first;
    ZuActionBase* m_second;
    ZuActionBase* m_third;
};
