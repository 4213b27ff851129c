#pragma once

#include "platform/ZuLog.h"

#include <cstdint>

namespace qz {

// Ordered map on a red-black tree, keyed by K's operator== and operator<.
// Insertion rebalances; removal only splices the node out, which keeps
// lookups and in-order walks correct at the cost of balance. The engine's
// maps are small and mostly grow, so the simpler removal is kept.
template <typename K, typename V>
class map {
public:
    class RBTree {
    public:
        RBTree(const K& k, const V& v) : key(k), value(v) {}

        const K& getKey() const { return key; }
        V& getValue() { return value; }
        const V& getValue() const { return value; }
        void setValue(const V& v) { value = v; }

        RBTree* getLeftChild() const { return left; }
        RBTree* getRightChild() const { return right; }
        RBTree* getParent() const { return parent; }

        bool isRoot() const { return parent == nullptr; }
        bool isLeftChild() const { return parent && parent->left == this; }
        bool isRightChild() const { return parent && parent->right == this; }
        bool isLeaf() const { return !left && !right; }
        bool isRed() const { return red; }
        bool isBlack() const { return !red; }

    private:
        friend class map<K, V>;

        void setLeftChild(RBTree* p) {
            left = p;
            if (p) p->parent = this;
        }
        void setRightChild(RBTree* p) {
            right = p;
            if (p) p->parent = this;
        }

        RBTree* left = nullptr;
        RBTree* right = nullptr;
        RBTree* parent = nullptr;
        K key;
        V value;
        bool red = true;
    };

    using Node = RBTree;

    // In-order walk, either direction.
    class Iterator {
    public:
        Iterator() = default;
        explicit Iterator(RBTree* r) : root(r) { reset(true); }

        void reset(bool atLowest = true) { current = atLowest ? minimum(root) : maximum(root); }
        bool atEnd() const { return current == nullptr; }
        RBTree* getNode() const { return current; }

        Iterator& operator++() {
            inc();
            return *this;
        }
        Iterator& operator--() {
            dec();
            return *this;
        }
        void operator++(int) { inc(); }
        void operator--(int) { dec(); }

        RBTree* operator->() const { return current; }
        RBTree& operator*() const { return *current; }

        bool operator==(const Iterator& other) const { return current == other.current; }
        bool operator!=(const Iterator& other) const { return current != other.current; }

    private:
        static RBTree* minimum(RBTree* n) {
            while (n && n->left) n = n->left;
            return n;
        }
        static RBTree* maximum(RBTree* n) {
            while (n && n->right) n = n->right;
            return n;
        }

        void inc() {
            if (!current) return;
            if (current->right) {
                current = minimum(current->right);
                return;
            }
            while (current->isRightChild()) current = current->parent;
            current = current->parent;
        }

        void dec() {
            if (!current) return;
            if (current->left) {
                current = maximum(current->left);
                return;
            }
            while (current->isLeftChild()) current = current->parent;
            current = current->parent;
        }

        RBTree* root = nullptr;
        RBTree* current = nullptr;
    };

    // Children before parents, so a walk may free each node it has passed.
    class ParentLastIterator {
    public:
        ParentLastIterator() = default;
        explicit ParentLastIterator(RBTree* r) : root(r) { reset(); }

        void reset() { current = deepestLeft(root); }
        bool atEnd() const { return current == nullptr; }
        RBTree* getNode() const { return current; }

        ParentLastIterator& operator++() {
            inc();
            return *this;
        }
        void operator++(int) { inc(); }
        RBTree* operator->() const { return current; }
        RBTree& operator*() const { return *current; }

    private:
        static RBTree* deepestLeft(RBTree* n) {
            while (n) {
                if (n->left)
                    n = n->left;
                else if (n->right)
                    n = n->right;
                else
                    break;
            }
            return n;
        }

        void inc() {
            if (!current) return;
            RBTree* parent = current->parent;
            if (current->isLeftChild() && parent->right)
                current = deepestLeft(parent->right);
            else
                current = parent;
        }

        RBTree* root = nullptr;
        RBTree* current = nullptr;
    };

    // What operator[] gives: reads go through find, writes through set.
    class AccessClass {
    public:
        AccessClass& operator=(const V& value) {
            tree.set(key, value);
            return *this;
        }

        // The key must exist; a missing key is refused with a default value.
        operator V() const {
            RBTree* node = tree.find(key);
            if (!node) {
                QZLOGE("qz::map: read of a missing key");
                return V();
            }
            return node->getValue();
        }

    private:
        friend class map<K, V>;
        AccessClass(map& t, const K& k) : tree(t), key(k) {}
        map& tree;
        K key;  // a copy: the proxy may outlive a temporary key
    };

    map() = default;
    map(const map& other) { *this = other; }
    ~map() { clear(); }

    map& operator=(const map& other) {
        if (this == &other) return *this;
        clear();
        for (Iterator it(other.root); !it.atEnd(); ++it) insert(it->getKey(), it->getValue());
        return *this;
    }

    // False, with the old value kept, when the key is already there.
    bool insert(const K& key, const V& value) {
        RBTree* parent = nullptr;
        bool toLeft = false;
        for (RBTree* n = root; n;) {
            if (key == n->key) return false;
            parent = n;
            toLeft = key < n->key;
            n = toLeft ? n->left : n->right;
        }
        RBTree* node = new RBTree(key, value);
        if (!parent)
            root = node;
        else if (toLeft)
            parent->setLeftChild(node);
        else
            parent->setRightChild(node);
        ++count;
        rebalanceAfterInsert(node);
        return true;
    }

    // Replaces the value of an existing key or inserts a new one.
    void set(const K& key, const V& value) {
        if (RBTree* node = find(key))
            node->setValue(value);
        else
            insert(key, value);
    }

    RBTree* find(const K& key) const {
        RBTree* n = root;
        while (n) {
            if (key == n->key) return n;
            n = key < n->key ? n->left : n->right;
        }
        return nullptr;
    }

    // Looks a key up by any type that compares with K both ways (a C string
    // for a qz::string key), so a lookup builds no temporary key.
    template <typename Q>
    RBTree* find(const Q& key) const {
        RBTree* n = root;
        while (n) {
            if (key == n->key) return n;
            n = key < n->key ? n->left : n->right;
        }
        return nullptr;
    }

    bool remove(const K& key) { return remove(find(key)); }

    // Node must belong to this map.
    bool remove(RBTree* node) {
        if (!node) return false;
        while (node->right) rotateLeft(node);
        RBTree* left = node->left;
        if (node->isLeftChild())
            node->parent->setLeftChild(left);
        else if (node->isRightChild())
            node->parent->setRightChild(left);
        else {
            root = left;
            if (left) left->parent = nullptr;
        }
        if (root) root->red = false;
        delete node;
        --count;
        return true;
    }

    void clear() {
        ParentLastIterator it(root);
        while (!it.atEnd()) {
            RBTree* node = it.getNode();
            ++it;
            delete node;
        }
        root = nullptr;
        count = 0;
    }

    uint32_t size() const { return count; }
    bool empty() const { return root == nullptr; }
    RBTree* getRoot() const { return root; }

    AccessClass operator[](const K& key) { return AccessClass(*this, key); }

    Iterator getIterator() const { return Iterator(root); }
    ParentLastIterator getParentLastIterator() const { return ParentLastIterator(root); }

private:
    // Standard red-black repair: recolour while the uncle is red, otherwise
    // rotate the node into line and once more at the grandparent.
    void rebalanceAfterInsert(RBTree* node) {
        while (!node->isRoot() && node->parent->isRed()) {
            RBTree* parent = node->parent;
            RBTree* grand = parent->parent;
            // Removal does not recolour, so a red node can end up as the root:
            // with no grandparent, blackening the parent repairs the pair.
            if (!grand) {
                parent->red = false;
                break;
            }
            if (parent->isLeftChild()) {
                RBTree* uncle = grand->right;
                if (uncle && uncle->isRed()) {
                    parent->red = false;
                    uncle->red = false;
                    grand->red = true;
                    node = grand;
                    continue;
                }
                if (node->isRightChild()) {
                    node = parent;
                    rotateLeft(node);
                }
                node->parent->red = false;
                node->parent->parent->red = true;
                rotateRight(node->parent->parent);
            } else {
                RBTree* uncle = grand->left;
                if (uncle && uncle->isRed()) {
                    parent->red = false;
                    uncle->red = false;
                    grand->red = true;
                    node = grand;
                    continue;
                }
                if (node->isLeftChild()) {
                    node = parent;
                    rotateRight(node);
                }
                node->parent->red = false;
                node->parent->parent->red = true;
                rotateLeft(node->parent->parent);
            }
        }
        root->red = false;
    }

    // Puts p's right child in p's place; p becomes its left child.
    void rotateLeft(RBTree* p) {
        RBTree* right = p->right;
        p->setRightChild(right->left);
        replaceInParent(p, right);
        right->setLeftChild(p);
    }

    void rotateRight(RBTree* p) {
        RBTree* left = p->left;
        p->setLeftChild(left->right);
        replaceInParent(p, left);
        left->setRightChild(p);
    }

    void replaceInParent(RBTree* old, RBTree* repl) {
        if (old->isLeftChild())
            old->parent->setLeftChild(repl);
        else if (old->isRightChild())
            old->parent->setRightChild(repl);
        else {
            root = repl;
            repl->parent = nullptr;
        }
    }

    RBTree* root = nullptr;
    uint32_t count = 0;
};

}  // namespace qz
