#pragma once

class ZuNode;
class ZuPerson;
class ZuPersonTracker;

// The face a node follows: the person of the node's person id in the node's
// scene. Face effects look it up every frame, since persons change only by
// detection and a node may outlive a scene's re-creation.
class ZuNodePerson {
public:
    // Null without an engine, a person system or such a person.
    static ZuPerson* of(const ZuNode* node, int personID);
    static ZuPerson* of(const ZuNode* node);
    // The tracker of a present face (existState 1 or 2), else null.
    static ZuPersonTracker* trackerOfPresent(const ZuNode* node);
};
