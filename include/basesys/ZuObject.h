#pragma once

// Root of every engine object. The only behaviour it carries is the data
// notification slot that ZuListenBase calls on its listeners.
class ZuObject {
public:
    ZuObject() = default;
    virtual ~ZuObject() = default;
    ZuObject(const ZuObject&) = delete;
    ZuObject& operator=(const ZuObject&) = delete;

    // Called by a data source this object listens to, once a frame at most.
    virtual void listenData(ZuObject* source) {}
};
