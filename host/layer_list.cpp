#include "host/layer_list.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

// A block splits in two when it grows past this: inserting moves at most this many pointers, and
// the blocks' starts are refreshed in (layers / half of it) steps.
constexpr std::size_t kMaxBlock = 256;

}  // namespace

LayerList::LayerList() = default;
LayerList::~LayerList() = default;

LayerList::LayerList(const LayerList& other) { copyFrom(other); }

LayerList& LayerList::operator=(const LayerList& other) {
    if (this != &other) {
        clear();
        copyFrom(other);
    }
    return *this;
}

LayerList::LayerList(LayerList&& other) noexcept
    : blocks_(std::move(other.blocks_)),
      size_(std::exchange(other.size_, 0)),
      clean_(std::exchange(other.clean_, 0)),
      cursor_(std::exchange(other.cursor_, 0)),
      ids_(std::move(other.ids_)),
      indexed_(std::exchange(other.indexed_, false)),
      visits_(other.visits_) {
    other.blocks_.clear();
    other.ids_.clear();
}

LayerList& LayerList::operator=(LayerList&& other) noexcept {
    if (this != &other) {
        blocks_ = std::move(other.blocks_);
        size_ = std::exchange(other.size_, 0);
        clean_ = std::exchange(other.clean_, 0);
        cursor_ = std::exchange(other.cursor_, 0);
        ids_ = std::move(other.ids_);
        indexed_ = std::exchange(other.indexed_, false);
        other.blocks_.clear();
        other.ids_.clear();
    }
    return *this;
}

void LayerList::copyFrom(const LayerList& other) {
    for (const auto& block : other.blocks_) {
        for (const auto& node : block->nodes) {
            push_back(node->layer);
        }
    }
}

Layer& LayerList::operator[](std::size_t index) { return nodeAt(index)->layer; }

const Layer& LayerList::operator[](std::size_t index) const { return nodeAt(index)->layer; }

void LayerList::refreshStarts() const {
    std::size_t start = clean_ == 0 ? 0 : blocks_[clean_ - 1]->start + blocks_[clean_ - 1]->nodes.size();
    for (std::size_t b = clean_; b < blocks_.size(); ++b) {
        blocks_[b]->start = start;
        start += blocks_[b]->nodes.size();
        ++visits_;
    }
    clean_ = blocks_.size();
}

std::size_t LayerList::blockOf(std::size_t index) const {
    refreshStarts();
    auto holds = [&](std::size_t b) {
        const Block& block = *blocks_[b];
        return block.start <= index && index < block.start + block.nodes.size();
    };
    ++visits_;
    if (cursor_ < blocks_.size() && holds(cursor_)) {
        return cursor_;
    }
    if (cursor_ + 1 < blocks_.size() && holds(cursor_ + 1)) {
        return ++cursor_;
    }
    // The last block whose start is at or before the place.
    std::size_t low = 0;
    std::size_t high = blocks_.size();
    while (high - low > 1) {
        ++visits_;
        const std::size_t mid = low + (high - low) / 2;
        (blocks_[mid]->start <= index ? low : high) = mid;
    }
    cursor_ = low;
    return low;
}

LayerList::Node* LayerList::nodeAt(std::size_t index) const {
    const Block& block = *blocks_[blockOf(index)];
    return block.nodes[index - block.start].get();
}

void LayerList::renumber(Block& block, std::size_t from) const {
    for (std::size_t i = from; i < block.nodes.size(); ++i) {
        block.nodes[i]->offset = i;
        ++visits_;
    }
}

void LayerList::split(std::size_t b) {
    Block& full = *blocks_[b];
    auto second = std::make_unique<Block>();
    const auto half = full.nodes.begin() + static_cast<std::ptrdiff_t>(full.nodes.size() / 2);
    second->nodes.assign(std::make_move_iterator(half), std::make_move_iterator(full.nodes.end()));
    full.nodes.erase(half, full.nodes.end());
    for (auto& node : second->nodes) {
        node->block = second.get();
    }
    renumber(*second, 0);
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(b + 1), std::move(second));
    clean_ = std::min(clean_, b + 1);
}

void LayerList::push_back(Layer layer) { insert(end(), std::move(layer)); }

LayerList::iterator LayerList::insert(const_iterator at, Layer layer) {
    const std::size_t place = at.place_;
    std::size_t b = 0;
    if (blocks_.empty()) {
        blocks_.push_back(std::make_unique<Block>());
        clean_ = 0;
    } else if (place == size_) {
        // Appending fills the last block; a full one is left whole and a new one started, so a
        // list built front to back has full blocks.
        refreshStarts();
        b = blocks_.size() - 1;
        if (blocks_[b]->nodes.size() >= kMaxBlock) {
            blocks_.push_back(std::make_unique<Block>());
            b = blocks_.size() - 1;
        }
    } else {
        b = blockOf(place);
    }
    Block& block = *blocks_[b];
    refreshStarts();
    const std::size_t offset = place - block.start;
    auto node = std::make_unique<Node>();
    node->layer = std::move(layer);
    node->block = &block;
    if (indexed_) {
        ids_[node->layer.id] = node.get();
    }
    block.nodes.insert(block.nodes.begin() + static_cast<std::ptrdiff_t>(offset), std::move(node));
    renumber(block, offset);
    ++size_;
    clean_ = std::min(clean_, b + 1);
    if (block.nodes.size() > kMaxBlock) {
        split(b);
    }
    return iterator(this, place);
}

LayerList::iterator LayerList::erase(const_iterator at) {
    const std::size_t place = at.place_;
    const std::size_t b = blockOf(place);
    Block& block = *blocks_[b];
    const std::size_t offset = place - block.start;
    if (indexed_) {
        ids_.erase(block.nodes[offset]->layer.id);
    }
    block.nodes.erase(block.nodes.begin() + static_cast<std::ptrdiff_t>(offset));
    --size_;
    if (block.nodes.empty()) {
        blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(b));
        clean_ = std::min(clean_, b);
    } else {
        renumber(block, offset);
        clean_ = std::min(clean_, b + 1);
    }
    return iterator(this, place);
}

void LayerList::clear() {
    blocks_.clear();
    ids_.clear();
    size_ = 0;
    clean_ = 0;
    cursor_ = 0;
    indexed_ = false;
}

void LayerList::buildIndex() const {
    ids_.clear();
    ids_.reserve(size_);
    for (const auto& block : blocks_) {
        for (const auto& node : block->nodes) {
            ids_.emplace(node->layer.id, node.get());
            ++visits_;
        }
    }
    indexed_ = true;
}

LayerList::Node* LayerList::findNode(Id id) const {
    if (!indexed_) {
        buildIndex();
    }
    ++visits_;
    const auto it = ids_.find(id);
    return it == ids_.end() ? nullptr : it->second;
}

std::size_t LayerList::placeOf(const Node& node) const {
    refreshStarts();
    return node.block->start + node.offset;
}

Layer* LayerList::find(Id id, std::size_t* index) {
    Node* node = findNode(id);
    if (node == nullptr) {
        return nullptr;
    }
    if (index != nullptr) {
        *index = placeOf(*node);
    }
    return &node->layer;
}

const Layer* LayerList::find(Id id, std::size_t* index) const { return const_cast<LayerList*>(this)->find(id, index); }

}  // namespace host
