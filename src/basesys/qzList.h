#pragma once

#include "basesys/ZuCoreAllocator.h"
#include "platform/ZuLog.h"

#include <cstdint>
#include <new>

namespace qz {

// Doubly linked list. Elements are stored by value; a list of ZuRefObject
// pointers does not release them, so its owner releases before clear().
template <typename T>
class list {
public:
    struct SKListNode {
        explicit SKListNode(const T& value) : element(value) {}
        SKListNode* next = nullptr;
        SKListNode* prev = nullptr;
        T element;
    };

    class ConstIterator;

    // One node pointer; the null iterator is end().
    class Iterator {
    public:
        Iterator() = default;
        explicit Iterator(SKListNode* node) : current(node) {}

        Iterator& operator++() {
            current = current->next;
            return *this;
        }
        Iterator& operator--() {
            current = current->prev;
            return *this;
        }
        Iterator operator++(int) {
            Iterator old = *this;
            current = current->next;
            return old;
        }
        Iterator operator--(int) {
            Iterator old = *this;
            current = current->prev;
            return old;
        }

        bool operator==(const Iterator& other) const { return current == other.current; }
        bool operator!=(const Iterator& other) const { return current != other.current; }
        bool operator==(const ConstIterator& other) const { return current == other.current; }
        bool operator!=(const ConstIterator& other) const { return current != other.current; }

        T& operator*() const { return current->element; }
        T* operator->() const { return &current->element; }

        SKListNode* getNode() const { return current; }

    private:
        friend class list<T>;
        friend class ConstIterator;
        SKListNode* current = nullptr;
    };

    class ConstIterator {
    public:
        ConstIterator() = default;
        explicit ConstIterator(const SKListNode* node) : current(node) {}
        ConstIterator(const Iterator& it) : current(it.current) {}

        ConstIterator& operator++() {
            current = current->next;
            return *this;
        }
        ConstIterator& operator--() {
            current = current->prev;
            return *this;
        }
        ConstIterator operator++(int) {
            ConstIterator old = *this;
            current = current->next;
            return old;
        }
        ConstIterator operator--(int) {
            ConstIterator old = *this;
            current = current->prev;
            return old;
        }

        bool operator==(const ConstIterator& other) const { return current == other.current; }
        bool operator!=(const ConstIterator& other) const { return current != other.current; }

        const T& operator*() const { return current->element; }
        const T* operator->() const { return &current->element; }

    private:
        friend class list<T>;
        friend class Iterator;
        const SKListNode* current = nullptr;
    };

    list() = default;
    list(const list& other) { *this = other; }
    ~list() { clear(); }

    list& operator=(const list& other) {
        if (this == &other) return *this;
        clear();
        for (const SKListNode* node = other.first; node; node = node->next) push_back(node->element);
        return *this;
    }

    uint32_t size() const { return count; }
    uint32_t getSize() const { return count; }
    bool empty() const { return first == nullptr; }

    void clear() {
        SKListNode* node = first;
        while (node) {
            SKListNode* next = node->next;
            freeNode(node);
            node = next;
        }
        first = nullptr;
        last = nullptr;
        count = 0;
    }

    void push_back(const T& value) {
        SKListNode* node = makeNode(value);
        node->prev = last;
        if (last) last->next = node;
        last = node;
        if (!first) first = node;
        ++count;
    }

    void push_front(const T& value) {
        SKListNode* node = makeNode(value);
        node->next = first;
        if (first) first->prev = node;
        first = node;
        if (!last) last = node;
        ++count;
    }

    // Inserts before position; end() appends.
    void insert_before(const Iterator& position, const T& value) {
        if (!position.current) {
            push_back(value);
            return;
        }
        if (position.current == first) {
            push_front(value);
            return;
        }
        SKListNode* node = makeNode(value);
        node->next = position.current;
        node->prev = position.current->prev;
        node->prev->next = node;
        position.current->prev = node;
        ++count;
    }

    Iterator begin() { return Iterator(first); }
    ConstIterator begin() const { return ConstIterator(first); }
    Iterator end() { return Iterator(); }
    ConstIterator end() const { return ConstIterator(); }
    // The last element's iterator, end() when empty.
    Iterator getLast() { return Iterator(last); }
    ConstIterator getLast() const { return ConstIterator(last); }

    // Unlinks and frees the node, nulls position and returns the next one.
    Iterator erase(Iterator& position) {
        SKListNode* node = position.current;
        if (!node) {
            QZLOGE("qz::list::erase: end iterator");
            return Iterator();
        }
        Iterator next(node->next);
        if (node == first) first = node->next;
        if (node == last) last = node->prev;
        if (node->next) node->next->prev = node->prev;
        if (node->prev) node->prev->next = node->next;
        freeNode(node);
        position.current = nullptr;
        --count;
        return next;
    }

    // Removes the first element equal to value; false when there is none.
    bool remove(const T& value) {
        for (Iterator it = begin(); it != end(); ++it) {
            if (*it == value) {
                erase(it);
                return true;
            }
        }
        return false;
    }

private:
    SKListNode* makeNode(const T& value) {
        SKListNode* node = allocator.allocate(1);
        new (static_cast<void*>(node)) SKListNode(value);
        return node;
    }

    void freeNode(SKListNode* node) {
        allocator.destruct(node);
        allocator.deallocate(node);
    }

    SKListNode* first = nullptr;
    SKListNode* last = nullptr;
    uint32_t count = 0;
    ZuCoreAllocator<SKListNode> allocator;
};

}  // namespace qz
