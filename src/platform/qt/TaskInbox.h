#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <utility>

namespace brivandel {

/// Tasks that any thread puts in and one thread takes out, all at once. A singly linked list, newest first:
/// - head_ is written by every thread that puts in (compare and exchange) and by the one that takes (exchange
/// with null);
/// - a node's next is written before the node becomes the head, and again by the taking thread, which alone
/// owns it then;
/// - no node is ever taken singly, so that an address that comes again (the ABA problem) does no harm.
class TaskInbox {
    struct Node {
        std::function<void()> task;
        Node* next = nullptr;
    };

public:
    /// Tasks taken out, oldest first. One thread.
    class Batch {
    public:
        Batch() = default;
        ~Batch() { freeAll(first_); }
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

        [[nodiscard]] bool isEmpty() const { return first_ == nullptr; }
        [[nodiscard]] std::size_t count() const { return count_; }

        /// Removes the oldest, which must exist.
        [[nodiscard]] std::function<void()> takeFirst() {
            Node* node = first_;
            std::function<void()> task = std::move(node->task);
            first_ = node->next;
            if (first_ == nullptr) {
                last_ = nullptr;
            }
            --count_;
            delete node;
            return task;
        }

    private:
        friend class TaskInbox;
        Node* first_ = nullptr;
        Node* last_ = nullptr;
        std::size_t count_ = 0;
    };

    TaskInbox() = default;
    ~TaskInbox() { freeAll(head_.load(std::memory_order_acquire)); }
    TaskInbox(const TaskInbox&) = delete;
    TaskInbox& operator=(const TaskInbox&) = delete;

    /// Whether the inbox was empty, so that the taking thread must be told. Any thread; takes no lock,
    /// allocates the node and nothing else.
    [[nodiscard]] bool put(std::function<void()> task) {
        auto* node = new Node{std::move(task)};
        Node* head = head_.load(std::memory_order_relaxed);
        do {
            node->next = head;
        } while (
            !head_.compare_exchange_weak(head, node, std::memory_order_release, std::memory_order_relaxed));
        return head == nullptr;
    }

    /// Appends all that is in the inbox, in the order in which it was put in.
    void takeAll(Batch& batch) {
        Node* newest = head_.exchange(nullptr, std::memory_order_acquire);
        Node* oldest = nullptr;
        for (Node* node = newest; node != nullptr; ++batch.count_) {
            Node* older = node->next;
            node->next = oldest;
            oldest = std::exchange(node, older);
        }
        if (oldest == nullptr) {
            return;
        }
        (batch.last_ != nullptr ? batch.last_->next : batch.first_) = oldest;
        batch.last_ = newest;
    }

private:
    static void freeAll(Node* node) {
        while (node != nullptr) {
            delete std::exchange(node, node->next);
        }
    }

    std::atomic<Node*> head_ = nullptr;
};

} // namespace brivandel
