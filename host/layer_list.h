// The layers of a composition, in layer order, with the parts of a vector's interface the host and
// its users need. A layer is found by its id in constant time, and adding or removing one anywhere
// costs about the square root of the count: the layers are held in blocks of at most a few hundred,
// so a copy inserted in the middle of 30,000 layers moves a few hundred pointers, not 15,000 layers.
// A layer keeps its address while others come and go.
//
// A layer's id is its identity: it is set before the layer is added and never changed in place.
#pragma once

#include "host/layer.h"

#include <compare>
#include <cstddef>
#include <iterator>
#include <memory>
#include <type_traits>
#include <unordered_map>
#include <vector>

namespace host {

class LayerList {
    template <bool Const>
    class Iter;

public:
    using value_type = Layer;
    using size_type = std::size_t;
    using difference_type = std::ptrdiff_t;
    using reference = Layer&;
    using const_reference = const Layer&;
    using iterator = Iter<false>;
    using const_iterator = Iter<true>;

    LayerList();
    ~LayerList();
    // A copy holds copies of the layers with the same ids; its id index is built on first use, so
    // copies kept only to be put back (undo) cost no index.
    LayerList(const LayerList& other);
    LayerList& operator=(const LayerList& other);
    LayerList(LayerList&& other) noexcept;
    LayerList& operator=(LayerList&& other) noexcept;

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    Layer& operator[](std::size_t index);
    const Layer& operator[](std::size_t index) const;
    Layer& front() { return (*this)[0]; }
    const Layer& front() const { return (*this)[0]; }
    Layer& back() { return (*this)[size_ - 1]; }
    const Layer& back() const { return (*this)[size_ - 1]; }

    iterator begin();
    iterator end();
    const_iterator begin() const;
    const_iterator end() const;
    const_iterator cbegin() const;
    const_iterator cend() const;

    void push_back(Layer layer);
    // Inserts before `at`; returns the new layer's place.
    iterator insert(const_iterator at, Layer layer);
    // Returns the place that followed the removed layer.
    iterator erase(const_iterator at);
    void clear();

    // The layer with this id, or null; `index` (when given) receives its 0-based place.
    Layer* find(Id id, std::size_t* index = nullptr);
    const Layer* find(Id id, std::size_t* index = nullptr) const;

    // Entries examined by lookups and by keeping the blocks in order, since the list was made: what
    // a test reads to see that finding a layer does not walk the list.
    std::size_t visits() const { return visits_; }

private:
    struct Block;
    struct Node {
        Layer layer;
        Block* block = nullptr;
        std::size_t offset = 0;  // place within its block
    };
    struct Block {
        std::vector<std::unique_ptr<Node>> nodes;
        std::size_t start = 0;  // place of the first node in the list, valid below clean_
    };

    void copyFrom(const LayerList& other);
    Node* nodeAt(std::size_t index) const;
    std::size_t blockOf(std::size_t index) const;  // the block holding a place < size_
    void refreshStarts() const;
    void renumber(Block& block, std::size_t from) const;
    void split(std::size_t block);
    void buildIndex() const;
    Node* findNode(Id id) const;
    std::size_t placeOf(const Node& node) const;

    std::vector<std::unique_ptr<Block>> blocks_;  // never an empty block
    std::size_t size_ = 0;
    mutable std::size_t clean_ = 0;   // blocks_[0, clean_) have a valid start
    mutable std::size_t cursor_ = 0;  // the block of the last access by place: runs of neighbours
    mutable std::unordered_map<Id, Node*> ids_;
    mutable bool indexed_ = false;
    mutable std::size_t visits_ = 0;
};

// Iterates by place, so it stays usable as a place (like a vector's index) and random access works;
// stepping to a neighbour is constant time.
template <bool Const>
class LayerList::Iter {
    using List = std::conditional_t<Const, const LayerList, LayerList>;

public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = Layer;
    using difference_type = std::ptrdiff_t;
    using pointer = std::conditional_t<Const, const Layer*, Layer*>;
    using reference = std::conditional_t<Const, const Layer&, Layer&>;

    Iter() = default;
    Iter(List* list, std::size_t place) : list_(list), place_(place) {}
    // A mutable iterator converts to a constant one.
    template <bool OtherConst>
    requires(Const && !OtherConst) Iter(const Iter<OtherConst>& other) : list_(other.list_), place_(other.place_) {}

    reference operator*() const { return (*list_)[place_]; }
    pointer operator->() const { return &(*list_)[place_]; }
    reference operator[](difference_type n) const { return (*list_)[place_ + static_cast<std::size_t>(n)]; }

    Iter& operator++() {
        ++place_;
        return *this;
    }
    Iter operator++(int) {
        Iter old = *this;
        ++place_;
        return old;
    }
    Iter& operator--() {
        --place_;
        return *this;
    }
    Iter operator--(int) {
        Iter old = *this;
        --place_;
        return old;
    }
    Iter& operator+=(difference_type n) {
        place_ = static_cast<std::size_t>(static_cast<difference_type>(place_) + n);
        return *this;
    }
    Iter& operator-=(difference_type n) { return *this += -n; }
    friend Iter operator+(Iter it, difference_type n) { return it += n; }
    friend Iter operator+(difference_type n, Iter it) { return it += n; }
    friend Iter operator-(Iter it, difference_type n) { return it -= n; }
    friend difference_type operator-(const Iter& a, const Iter& b) {
        return static_cast<difference_type>(a.place_) - static_cast<difference_type>(b.place_);
    }
    friend bool operator==(const Iter& a, const Iter& b) { return a.place_ == b.place_; }
    friend auto operator<=>(const Iter& a, const Iter& b) { return a.place_ <=> b.place_; }

    std::size_t place() const { return place_; }

private:
    friend class LayerList;
    friend class Iter<!Const>;
    List* list_ = nullptr;
    std::size_t place_ = 0;
};

inline LayerList::iterator LayerList::begin() { return iterator(this, 0); }
inline LayerList::iterator LayerList::end() { return iterator(this, size_); }
inline LayerList::const_iterator LayerList::begin() const { return const_iterator(this, 0); }
inline LayerList::const_iterator LayerList::end() const { return const_iterator(this, size_); }
inline LayerList::const_iterator LayerList::cbegin() const { return begin(); }
inline LayerList::const_iterator LayerList::cend() const { return end(); }

}  // namespace host
