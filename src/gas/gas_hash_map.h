// GasHashMap: the chained hash map behind every container of the gas catalogue (species by id
// and by name, the composition cache, the components of a mixture). Its growth points, its
// node blocks and its iteration order are part of the library's behaviour, so it is written
// out here rather than taken from the standard library:
//   - 17 bins to start, the bin array made at the first insertion; a new node goes to the head
//     of its chain and keeps the key's full hash, which equality tests first;
//   - after an insertion above floor(bins * 2.25) elements, or a removal below floor(bins * 0.25)
//     (taken as 0 while that is under 17), the table rehashes to the first prime of the list not
//     below floor(count / 0.75), 17 at least, unless rehash is suspended;
//   - nodes come in blocks of 10 through a free list, and all blocks go when the map empties;
//   - iteration runs through the bins in ascending order, each chain from its head.
// Keys and values are plain values (ids, pointers, amounts); a text key points into storage
// that its value owns.
#ifndef TAVLIB6_GAS_HASH_MAP_H
#define TAVLIB6_GAS_HASH_MAP_H

#include <cstdint>
#include <new>
#include <string_view>
#include <type_traits>

#include "gas/gas_text.h"

namespace tvl {

namespace gashash {

constexpr std::uint32_t kInitialBinCount = 17;

// The bin count that a rehash of a map of `count` elements goes to.
std::uint32_t binCountFor(std::uint32_t count);
// Element counts above which an insertion grows the table, and below which a removal shrinks it.
std::uint32_t highThreshold(std::uint32_t bins);
std::uint32_t lowThreshold(std::uint32_t bins);

}  // namespace gashash

// Hash of an id: the id itself as an unsigned number.
struct IdKey {
    using Key = std::int32_t;
    static std::uint32_t hash(Key id) { return static_cast<std::uint32_t>(id); }
    static bool equal(Key stored, Key wanted) { return stored == wanted; }
};

// Hash of a record reference: the low 32 bits of its address.
template <class Record>
struct AddressKey {
    using Key = Record*;
    static std::uint32_t hash(const Record* record) {
        return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(record));
    }
    static bool equal(const Record* stored, const Record* wanted) { return stored == wanted; }
};

// Texts hash and compare without regard to case; a look-up may pass any view of a text.
struct TextKey {
    using Key = const char*;
    static std::uint32_t hash(std::string_view text) { return hashText(text); }
    static bool equal(Key stored, std::string_view wanted) { return sameText(stored, wanted); }
};

template <class KeyTraits, class Value>
class GasHashMap {
public:
    using Key = typename KeyTraits::Key;
    static_assert(std::is_trivially_copyable_v<Key> && std::is_trivially_copyable_v<Value>,
                  "nodes are recycled through a free list without construction or destruction");

    struct Node {
        Node* next;
        std::uint32_t hash;
        Key key;
        Value value;
    };

    // Bins in ascending order, each chain from its head.
    class Iterator {
    public:
        Iterator() = default;
        explicit Iterator(const GasHashMap* map) : map(map) { advanceToNextBin(); }
        Node& operator*() const { return *node; }
        Node* operator->() const { return node; }
        Iterator& operator++() {
            node = node->next;
            if (node == nullptr) advanceToNextBin();
            return *this;
        }
        bool operator==(const Iterator& other) const { return node == other.node; }
        bool operator!=(const Iterator& other) const { return node != other.node; }

    private:
        void advanceToNextBin() {
            while (node == nullptr && map->bins != nullptr && nextBin < map->binCount) node = map->bins[nextBin++];
        }
        const GasHashMap* map = nullptr;
        std::uint32_t nextBin = 0;
        Node* node = nullptr;
    };

    GasHashMap() = default;
    GasHashMap(const GasHashMap&) = delete;
    GasHashMap& operator=(const GasHashMap&) = delete;
    ~GasHashMap() {
        releaseBlocks();
        delete[] bins;
    }

    std::uint32_t size() const { return elementCount; }
    bool empty() const { return elementCount == 0; }
    std::uint32_t bucketCount() const { return binCount; }
    bool rehashSuspended() const { return suspension > 0; }
    // Blocks of 10 nodes held, in use or on the free list.
    std::uint32_t nodeBlockCount() const {
        std::uint32_t count = 0;
        for (const Block* block = blocks; block != nullptr; block = block->next) ++count;
        return count;
    }

    Iterator begin() const { return Iterator(this); }
    Iterator end() const { return Iterator(); }

    template <class Lookup>
    Value* find(const Lookup& key) const {
        Node* node = findNode(key);
        return node != nullptr ? &node->value : nullptr;
    }

    template <class Lookup>
    bool contains(const Lookup& key) const {
        return findNode(key) != nullptr;
    }

    // Enters a key that is not in the map yet (the callers look it up first) at the head of its
    // chain and returns its value. Allocation failure throws std::bad_alloc before anything
    // changed.
    Value& insert(Key key, const Value& value) {
        if (bins == nullptr) bins = new Node*[binCount]();
        Node* node = takeNode();
        node->hash = KeyTraits::hash(key);
        node->key = key;
        node->value = value;
        Node*& head = bins[node->hash % binCount];
        node->next = head;
        head = node;
        ++elementCount;
        if (elementCount > high && suspension == 0) rehash();
        return node->value;
    }

    // Removes the key if present; true if it was there.
    template <class Lookup>
    bool remove(const Lookup& key) {
        if (bins == nullptr) return false;
        const std::uint32_t hash = KeyTraits::hash(key);
        for (Node** link = &bins[hash % binCount]; *link != nullptr; link = &(*link)->next) {
            Node* node = *link;
            if (node->hash == hash && KeyTraits::equal(node->key, key)) {
                *link = node->next;
                dropNode(node);
                if (elementCount < low && suspension == 0) rehash();
                return true;
            }
        }
        return false;
    }

    // Removes, in iteration order, every entry for which remove(key, value) says so, with rehash
    // suspended, then rehashes once. The predicate may release what the value holds, the key's
    // text included: a removed node's key is not read again.
    template <class Predicate>
    std::uint32_t removeIf(Predicate&& shouldRemove) {
        std::uint32_t removed = 0;
        suspendRehash();
        for (std::uint32_t bin = 0; bins != nullptr && bin < binCount; ++bin) {
            Node** link = &bins[bin];
            while (*link != nullptr) {
                Node* node = *link;
                if (shouldRemove(node->key, node->value)) {
                    *link = node->next;
                    dropNode(node);
                    ++removed;
                } else {
                    link = &node->next;
                }
            }
        }
        resumeRehash();
        return removed;
    }

    // Bulk operations raise the suspension counter at their start and lower it at their end;
    // the last resume rehashes once to the bin count that fits the element count.
    void suspendRehash() { ++suspension; }
    void resumeRehash() {
        if (suspension > 0 && --suspension == 0) rehash();
    }

    // Rehashes to the bin count that fits the element count; to the present count it does nothing.
    void rehash() { rehashTo(gashash::binCountFor(elementCount)); }

private:
    static constexpr int kNodesPerBlock = 10;
    struct Block {
        Block* next;
        Node nodes[kNodesPerBlock];
    };

    template <class Lookup>
    Node* findNode(const Lookup& key) const {
        if (bins == nullptr) return nullptr;
        const std::uint32_t hash = KeyTraits::hash(key);
        for (Node* node = bins[hash % binCount]; node != nullptr; node = node->next)
            if (node->hash == hash && KeyTraits::equal(node->key, key)) return node;
        return nullptr;
    }

    Node* takeNode() {
        if (freeNodes == nullptr) {
            Block* block = new Block;
            block->next = blocks;
            blocks = block;
            for (Node& node : block->nodes) {
                node.next = freeNodes;
                freeNodes = &node;
            }
        }
        Node* node = freeNodes;
        freeNodes = node->next;
        return node;
    }

    void dropNode(Node* node) {
        node->next = freeNodes;
        freeNodes = node;
        if (--elementCount == 0) releaseBlocks();
    }

    void releaseBlocks() {
        while (blocks != nullptr) {
            Block* next = blocks->next;
            delete blocks;
            blocks = next;
        }
        freeNodes = nullptr;
    }

    // Relinks every node, bins in ascending order and each chain from its head, to the head of
    // its new chain. Without memory for the new bins the table keeps its old ones: a full table
    // is slower, not wrong.
    void rehashTo(std::uint32_t newCount) {
        if (newCount == binCount) return;
        if (bins != nullptr) {
            Node** newBins = new (std::nothrow) Node*[newCount]();
            if (newBins == nullptr) return;
            for (std::uint32_t bin = 0; bin < binCount; ++bin) {
                for (Node* node = bins[bin]; node != nullptr;) {
                    Node* next = node->next;
                    Node*& head = newBins[node->hash % newCount];
                    node->next = head;
                    head = node;
                    node = next;
                }
            }
            delete[] bins;
            bins = newBins;
        }
        binCount = newCount;
        high = gashash::highThreshold(newCount);
        low = gashash::lowThreshold(newCount);
    }

    Node** bins = nullptr;
    std::uint32_t binCount = gashash::kInitialBinCount;
    std::uint32_t elementCount = 0;
    std::uint32_t high = 38;  // floor(17 * 2.25)
    std::uint32_t low = 0;    // floor(17 * 0.25) is under 17
    int suspension = 0;
    Node* freeNodes = nullptr;
    Block* blocks = nullptr;
};

}  // namespace tvl

#endif
