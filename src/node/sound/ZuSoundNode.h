#pragma once

#include "basesys/qzString.h"
#include "scene/ZuNode.h"

// What an "audio" item of a package builds. The engine has no sound output:
// the node holds the sound's file and loop flag and whether it was asked to
// play, so that a host walking the scene can find the sound and play it.
class ZuSoundNode : public ZuNode {
public:
    explicit ZuSoundNode(ZuAppMain* app);

    void zudestroy() override;
    bool procEvent(ZuEvent*) override { return true; }

    // Marks the sound playing and says so in the log; nothing is heard.
    void play();
    void stop();

    void setSoundName(const char* name) { soundName = name ? name : ""; }
    const qz::string& getSoundName() const { return soundName; }
    void setLoop(bool value) { loop = value; }
    bool getLoop() const { return loop; }
    bool isPlaying() const { return playing; }
    int getPlayCount() const { return playCount; }

private:
    qz::string soundName;
    bool loop = false;
    bool playing = false;
    int playCount = 0;
};
