#include <mota/types/_private/value_pool.hpp>

#include <new>

namespace MOTA_2_18 {
namespace types {
namespace _private {

__thread value_pool_state value_pool = {pool_not_open, nullptr, 0, false};

namespace {

// Its destructor runs when the thread ends and hands the thread's blocks back to the heap.
struct thread_clean_up {
  ~thread_clean_up() {
    if (value_pool.last > pool_not_open)
      ::operator delete(reinterpret_cast<void*>(value_pool.last));
    value_pool.last = pool_not_open;
    while (value_pool.head != nullptr) {
      free_value_block* const block = value_pool.head;
      value_pool.head = block->next;
      ::operator delete(block);
    }
    value_pool.kept = 0;
    value_pool.closed = true;
  }
};

}  // namespace

void* take_value_block_from_heap() {
  return ::operator new(pooled_value_size);
}

void give_value_block_slowly(void* block) noexcept {
  if (value_pool.last == pool_not_open && !value_pool.closed) {
    // The thread's first release: register the clean-up, open the pool and keep the block.
    static thread_local thread_clean_up clean_up;
    (void)clean_up;
    value_pool.last = reinterpret_cast<std::uintptr_t>(block);
    return;
  }
  ::operator delete(block);
}

}  // namespace _private
}  // namespace types
}  // namespace MOTA_2_18
