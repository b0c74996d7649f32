// Fields that one thread writes while another reads them.
//
// A Cell reads and assigns like the plain value and is written whole at once; who reads a new value also sees
// what its writer did before. Groups of values that must change together stand under the SharedLock or travel
// in one Cell; a pointer to something shared stands in a SharedSlot.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

namespace fovix {

template <class T>
class Cell {
  public:
    Cell(T value = T{}) : value_(value) {}  // implicit: a Cell is used like its value
    Cell(const Cell& other) : value_(other.get()) {}
    Cell& operator=(const Cell& other) { return *this = other.get(); }
    Cell& operator=(T value) {
        value_.store(value, std::memory_order_release);
        return *this;
    }

    operator T() const { return get(); }
    T get() const { return value_.load(std::memory_order_acquire); }

    /// Takes the value and leaves another one, in one step.
    T exchange(T value) { return value_.exchange(value, std::memory_order_acq_rel); }

  private:
    static_assert(std::atomic<T>::is_always_lock_free, "a Cell holds what the machine writes at once");
    std::atomic<T> value_;
};

template <class T>
class SharedSlot {
  public:
    std::shared_ptr<T> load() const {
        const std::lock_guard guard(mutex_);
        return pointer_;
    }
    void store(std::shared_ptr<T> pointer) {
        const std::lock_guard guard(mutex_);
        std::swap(pointer_, pointer);  // what was there is dropped after the guard, by the parameter
    }

  private:
    mutable std::mutex mutex_;
    std::shared_ptr<T> pointer_;
};

}  // namespace fovix
