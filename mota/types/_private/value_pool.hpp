// Not part of the public interface.
//
// Storage for the small value objects of types::variant (nil, booleans, numbers): a variant made
// from an int would otherwise cost a heap allocation and a release every time. Each thread keeps
// a short list of free blocks of its own; a block released on another thread than the one that
// took it simply joins that thread's list, since every block is an independent heap allocation.
// A thread's list is freed when the thread ends. Nothing is shared between threads, so no lock
// or atomic operation is needed.
#ifndef MOTA_TYPES_PRIVATE_VALUE_POOL_HPP
#define MOTA_TYPES_PRIVATE_VALUE_POOL_HPP

#include <cstddef>
#include <new>

// Under AddressSanitizer every value goes to the heap and back, so that a use after release
// is still caught: a block resting in the pool would hide it.
#if defined(__SANITIZE_ADDRESS__)
#define MOTA_VALUE_POOL_OFF 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define MOTA_VALUE_POOL_OFF 1
#endif
#endif
#ifndef MOTA_VALUE_POOL_OFF
#define MOTA_VALUE_POOL_OFF 0
#endif

namespace MOTA_2_18 {
namespace types {
namespace _private {

// Objects of at most this many bytes come from the pool.
constexpr std::size_t pooled_value_size = 32;
// Free blocks a thread keeps at most; further releases go back to the heap.
constexpr unsigned pooled_values_kept = 128;

struct free_value_block {
  free_value_block* next;
};

// One per thread. `kept_at_most` stays 0 until the thread's clean-up is registered (on its
// first release) and drops back to 0 once the clean-up has run, so that releases made later in
// the thread's exit go straight to the heap.
struct value_pool_state {
  free_value_block* head;
  unsigned kept;
  unsigned kept_at_most;
  bool closed;
};

// Plain data with a constant initial value (__thread rather than thread_local, so that no
// initialisation check is made), in the initial-exec model: reaching it is one load relative
// to the thread pointer.
extern __thread value_pool_state value_pool __attribute__((tls_model("initial-exec")));

// The slow paths: a block from the heap; a block back to the heap or into a list that has not
// been set up yet.
void* take_value_block_from_heap();
void give_value_block_slowly(void* block) noexcept;

// take_value_block: a block of pooled_value_size bytes, aligned as ::operator new aligns; throws
// std::bad_alloc as ::operator new does. take_free_value_block: a block from the thread's list
// only, or null when the list is empty (and always without the pool), for callers that keep the
// heap out of their common path.
#if MOTA_VALUE_POOL_OFF
inline void* take_free_value_block() noexcept {
  return nullptr;
}
inline void* take_value_block() {
  return ::operator new(pooled_value_size);
}
inline void give_value_block(void* block) noexcept {
  ::operator delete(block);
}
#else
inline void* take_free_value_block() noexcept {
  free_value_block* const block = value_pool.head;
  if (block == nullptr) return nullptr;
  value_pool.head = block->next;
  --value_pool.kept;
  return block;
}

inline void* take_value_block() {
  void* const block = take_free_value_block();
  return block != nullptr ? block : take_value_block_from_heap();
}

// Returns a block from take_value_block (of any thread).
inline void give_value_block(void* block) noexcept {
  if (value_pool.kept >= value_pool.kept_at_most) {
    give_value_block_slowly(block);
    return;
  }
  auto* const freed = static_cast<free_value_block*>(block);
  freed->next = value_pool.head;
  value_pool.head = freed;
  ++value_pool.kept;
}
#endif  // MOTA_VALUE_POOL_OFF

}  // namespace _private
}  // namespace types
}  // namespace MOTA_2_18

#endif  // MOTA_TYPES_PRIVATE_VALUE_POOL_HPP
