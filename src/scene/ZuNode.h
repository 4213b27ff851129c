#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzList.h"
#include "basesys/qzString.h"
#include "event/ZuEventProc.h"
#include "render/math/ZuMat4.h"
#include "scene/ZuBoundingBox.h"

class ZuActionBase;
class ZuRenderObject;
class ZuRenderScene;
class ZuScene;
class ZuVisitorBase;

// Stream numbers of the render back end; a node records into one of them.
typedef int RENDERSTREAMTYPE;

// Base of everything that takes part in a frame. A node has a place in a
// tree below a scene, a local and an absolute transform, running actions,
// and life-cycle slots for subclasses. It never draws in update: render only
// records commands for the render thread to replay.
//
// Life: construct (draws a uid), zuinit, owned by the node manager, addChild
// (zuenter), deep_update every frame, removeFromParent (zuexit), zudestroy,
// release. zuenter and zuexit may repeat when a package is re-attached.
class ZuNode : public ZuEventProc {
public:
    explicit ZuNode(ZuAppMain* app);
    ~ZuNode() override;

    // Life-cycle slots.
    virtual void zuinit() {}
    virtual void zudestroy();
    virtual void update(float delta);
    virtual void render() {}
    virtual void setPositionX(float x, float y, float z);
    virtual void setScaleX(float x, float y, float z);
    virtual void addChild(ZuNode* child);
    virtual void addChild(ZuNode* child, int zOrder);
    virtual void zuenter() {}
    virtual void zuexit() {}
    virtual bool removeChild(ZuNode* child);
    virtual bool removeChild(int resUID);
    virtual bool isReady() { return m_ready; }
    virtual void testinit() {}

    void setRotationX(float x, float y, float z, EUR_TYPE order = EUR_XYZ);

    // Tree.
    bool hasChild(ZuNode* child) const;
    bool removeFromParent();
    void clearChild();
    void setParent(ZuNode* node) { m_parent = node; }
    ZuNode* getParent() const { return m_parent; }
    const qz::array<ZuNode*>& getChildren() const { return m_children; }
    uint32_t getChildCount() const { return m_children.size(); }

    // The frame walk: update, render, sort children if one was added, recurse.
    void deep_update(float delta);
    void deepVisit(ZuVisitorBase* visitor);

    // Broadcast events reach the node only between these two calls.
    void listenEvent();
    void unlistenEvent();

    // Actions (the node keeps a reference to each).
    void addAction(ZuActionBase* action);
    void delAction(ZuActionBase* action);
    void clearAction();
    uint32_t getActionCount() const { return m_actions.size(); }

    // Sibling order for the child sort.
    bool operator>(const ZuNode& other) const { return m_zOrder > other.m_zOrder; }
    bool operator<(const ZuNode& other) const { return m_zOrder < other.m_zOrder; }

    // Plain accessors.
    void setresUID(int id) { m_resUID = id; }
    int getresUID() const { return m_resUID; }
    void setpersonID(int id) { m_personID = id; }
    int getpersonID() const { return m_personID; }
    void setCanSelect(bool value) { m_canSelect = value; }
    bool getCanSelect() const { return m_canSelect; }
    void setCanProcEvent(bool value) { m_canProcEvent = value; }
    bool getCanProcEvent() const { return m_canProcEvent; }
    void setVisible(bool value) { m_visible = value; }
    bool getVisible() const { return m_visible; }
    bool isVisible() const { return m_visible; }
    void setname(const char* text) { m_name = text; }
    const qz::string& getname() const { return m_name; }
    void setSceneName(const char* text) { m_sceneName = text; }
    const qz::string& getSceneName() const { return m_sceneName; }
    void setreact(int value) { m_react = value; }
    int getreact() const { return m_react; }
    void setRenderOrder(RENDERSTREAMTYPE order) { m_renderOrder = order; }
    RENDERSTREAMTYPE getRenderOrder() const { return m_renderOrder; }
    void setZOrder(int order) { m_zOrder = order; }
    int getZOrder() const { return m_zOrder; }
    const qz::string& getType() const { return m_type; }
    int getuid() const { return m_uid; }
    const ZuMat4& getMat() const { return m_localMatrix; }
    const ZuMat4& getAbsoluteMat() const { return m_absoluteMatrix; }
    const ZuVec3& getPosition() const { return m_position; }
    float getPositionX() const { return m_position.x; }
    float getPositionY() const { return m_position.y; }
    float getPositionZ() const { return m_position.z; }
    const ZuVec3& getScale() const { return m_scale; }
    float getRotationX() const { return m_rotation.x; }
    float getRotationY() const { return m_rotation.y; }
    float getRotationZ() const { return m_rotation.z; }
    ZuBoundingBox& getBoundingBox() { return m_boundingBox; }

protected:
    // Subclass constructors name their class here.
    void setType(const char* type) { m_type = type; }
    void setReady(bool value) { m_ready = value; }
    // The scene whose frame walk runs now, and the render scene it records
    // into; null outside a walk.
    ZuScene* getActiveScene() const;
    ZuRenderScene* getActiveRenderScene() const;
    // The scene of this node's scene name, if it exists.
    ZuScene* getScene() const;
    void setRenderObject(ZuRenderObject* object);
    void setSelectRenderObject(ZuRenderObject* object);
    ZuRenderObject* getRenderObject() const { return m_renderObject; }

    int m_resUID = -1;
    int m_personID = 0;
    bool m_canSelect = false;
    bool m_canProcEvent = false;
    bool m_visible = true;
    qz::string m_name;
    qz::string m_sceneName;
    int m_react = 0;
    RENDERSTREAMTYPE m_renderOrder = 0;
    int m_zOrder = 0;
    qz::string m_type;
    int m_uid = -1;
    ZuMat4 m_localMatrix;
    ZuMat4 m_absoluteMatrix;
    ZuVec3 m_position{0.0f, 0.0f, 0.0f};
    ZuVec3 m_rotation{0.0f, 0.0f, 0.0f};
    ZuVec3 m_scale{1.0f, 1.0f, 1.0f};
    EUR_TYPE m_rotationOrder = EUR_XYZ;
    bool m_matrixDirty = false;
    ZuBoundingBox m_boundingBox;
    ZuRenderObject* m_renderObject = nullptr;
    ZuRenderObject* m_selectRenderObject = nullptr;
    ZuNode* m_parent = nullptr;
    qz::array<ZuNode*> m_children;
    qz::list<ZuActionBase*> m_actions;
    bool m_ready = true;

private:
    void runActions(float delta);
};
