#pragma once

namespace d2d::scene {

/// An intrusive, doubly linked list of the `Item`s of one `Owner`. The list owns nothing: an item leaves its
/// list when it dies, and a list that dies lets its items go.
template <class Item, class Owner>
class linked_list {
public:
    /// The links of an item in the list of its `Owner`; a base of the item's class.
    class node {
    public:
        node() noexcept = default;
        node(const node&) = delete;
        node& operator=(const node&) = delete;

        [[nodiscard]] node* next_item() const noexcept { return next_; }
        [[nodiscard]] bool linked() const noexcept { return list_ != nullptr; }

        /// Takes the item out of its list, if it is in one.
        void unlink() noexcept {
            if (!list_) return;
            (previous_ ? previous_->next_ : list_->first_) = next_;
            if (next_) next_->previous_ = previous_;
            next_ = previous_ = nullptr;
            list_ = nullptr;
        }

    protected:
        ~node() { unlink(); }

    private:
        friend class linked_list;
        node* next_ = nullptr;
        node* previous_ = nullptr;
        linked_list* list_ = nullptr;
    };

    linked_list() noexcept = default;
    linked_list(const linked_list&) = delete;
    linked_list& operator=(const linked_list&) = delete;
    ~linked_list() {
        while (first_) first_->unlink();
    }

    [[nodiscard]] bool empty() const noexcept { return !first_; }
    [[nodiscard]] node* first() const noexcept { return first_; }

    /// Puts an item that is in no list at the head.
    void push_front(node& item) noexcept {
        item.list_ = this;
        item.next_ = first_;
        if (first_) first_->previous_ = &item;
        first_ = &item;
    }

private:
    node* first_ = nullptr;
};

}  // namespace d2d::scene
