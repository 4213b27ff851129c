#include "node/sound/ZuSoundNode.h"

#include "platform/ZuLog.h"

ZuSoundNode::ZuSoundNode(ZuAppMain* app) : ZuNode(app) { setType("ZuSoundNode"); }

void ZuSoundNode::zudestroy() {
    stop();
    ZuNode::zudestroy();
}

void ZuSoundNode::play() {
    if (soundName.empty()) {
        QZLOGW("sound node %s: no sound file to play", m_name.c_str());
        return;
    }
    playing = true;
    playCount++;
    QZLOGD("sound node %s: play %s%s", m_name.c_str(), soundName.c_str(), loop ? " (loop)" : "");
}

void ZuSoundNode::stop() {
    if (!playing) return;
    playing = false;
    QZLOGD("sound node %s: stop %s", m_name.c_str(), soundName.c_str());
}
