// Fields that one thread writes while another reads them.
//
// A Cell reads and assigns like the plain value. Stores are atomic and release, loads acquire. To change a
// value that another thread may write meanwhile, use add, change or exchange: reading and assigning are two
// steps. Values that must change together are guarded by the lock or share one Cell.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

namespace fovix {

template <class T>
class Cell {
  public:
    Cell(T value = T{}) : _value(value) {}  // implicit: a Cell is used like its value
    Cell(const Cell& other) : _value(other.get()) {}
    Cell& operator=(const Cell& other) { return *this = other.get(); }
    Cell& operator=(T value) {
        _value.store(value, std::memory_order_release);
        return *this;
    }

    operator T() const { return get(); }
    T get() const { return _value.load(std::memory_order_acquire); }

    /// Stores a value and returns the previous one, in one step.
    T exchange(T value) { return _value.exchange(value, std::memory_order_acq_rel); }

    /// Replaces the value by function(value) and returns the new one, in one step; the function may run
    /// again.
    template <class Function>
    T change(Function&& function) {
        T before = get();
        T after = function(before);
        while (!_value.compare_exchange_weak(before, after, std::memory_order_acq_rel))
            after = function(before);
        return after;
    }

    /// Adds in one step and returns the sum.
    T add(T amount) {
        return change([amount](T value) { return value + amount; });
    }

  private:
    static_assert(std::atomic<T>::is_always_lock_free, "a Cell holds what the machine writes in one step");
    std::atomic<T> _value;
};

/// A pointer to shared data that any thread may replace.
template <class T>
class SharedSlot {
  public:
    std::shared_ptr<T> load() const {
        const std::lock_guard guard(_mutex);
        return _pointer;
    }
    void store(std::shared_ptr<T> pointer) {
        const std::lock_guard guard(_mutex);
        std::swap(_pointer, pointer);  // destroys the old value after unlocking
    }

  private:
    mutable std::mutex _mutex;
    std::shared_ptr<T> _pointer;
};

}  // namespace fovix
