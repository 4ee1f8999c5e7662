// Not part of the public interface (installed because variant.hpp and variant_type.hpp include
// it: a variant of a number is built and released inline, in the caller).
//
// Storage for the small value objects of types::variant (nil, booleans, numbers): a variant made
// from an int would otherwise cost a heap allocation and a release every time. Each thread keeps
// the block it released last apart, in front of a short list of further free blocks, so that
// the usual make-and-drop of one value reads and writes one word. A block released on another
// thread than the one that took it simply joins that thread's blocks, since every block is an
// independent heap allocation. A thread's blocks are freed when the thread ends. Nothing is
// shared between threads, so no lock or atomic operation is needed.
#ifndef MOTA_TYPES_PRIVATE_VALUE_POOL_HPP
#define MOTA_TYPES_PRIVATE_VALUE_POOL_HPP

#include <mota/export.hpp>

#include <cstddef>
#include <cstdint>
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
// Free blocks a thread keeps on its list at most (besides the last released one); further
// releases go back to the heap.
constexpr unsigned pooled_values_kept = 128;

struct free_value_block {
  free_value_block* next;
};

// The value of `last` while the thread's pool is not open: before its clean-up is registered
// (on its first release) and after the clean-up has run, so that releases made later in the
// thread's exit go straight to the heap. No block has this address.
constexpr std::uintptr_t pool_not_open = 1;

// One per thread: the last released block (0 when it has been taken again), then the list.
struct value_pool_state {
  std::uintptr_t last;
  free_value_block* head;
  unsigned kept;
  bool closed;
};

// Plain data with a constant initial value (__thread rather than thread_local, so that no
// initialisation check is made), in the initial-exec model: reaching it is one load relative
// to the thread pointer, from the library and from the inline code of its callers alike.
extern MOTA_API __thread value_pool_state value_pool __attribute__((tls_model("initial-exec")));

// The slow paths: a block from the heap; a block back to the heap, or into a pool that has not
// been opened yet.
[[gnu::returns_nonnull]] MOTA_API void* take_value_block_from_heap();
MOTA_API void give_value_block_slowly(void* block) noexcept;

// A block of pooled_value_size bytes, aligned as ::operator new aligns; throws std::bad_alloc
// as ::operator new does.
#if MOTA_VALUE_POOL_OFF
inline void* take_value_block() {
  return ::operator new(pooled_value_size);
}
inline void give_value_block(void* block) noexcept {
  ::operator delete(block);
}
#else
inline void* take_value_block() {
  const std::uintptr_t last = value_pool.last;
  if (__builtin_expect(last > pool_not_open, 1)) {
    value_pool.last = 0;
    return reinterpret_cast<void*>(last);
  }
  free_value_block* const block = value_pool.head;
  if (block == nullptr) return take_value_block_from_heap();
  value_pool.head = block->next;
  --value_pool.kept;
  return block;
}

// Returns a block from take_value_block (of any thread).
inline void give_value_block(void* block) noexcept {
  const std::uintptr_t last = value_pool.last;
  if (__builtin_expect(last == 0, 1)) {
    value_pool.last = reinterpret_cast<std::uintptr_t>(block);
    return;
  }
  if (last == pool_not_open || value_pool.kept >= pooled_values_kept) {
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
