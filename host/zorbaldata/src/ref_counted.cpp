// The destruction of shared objects, without recursion through what they hold.
#include <zorbal/data/detail/ref_counted.hpp>

namespace zorbal::data::detail {

RefCounted::~RefCounted() = default;

void RefCounted::destroy(RefCounted const* object) noexcept
{
    // While this thread destroys an object, the objects it lets go wait and are destroyed after it; those
    // that release nothing cannot nest, so they go at once. The others wait in a list chained through
    // their counts, which nothing reads once they reach zero: the list needs no memory and no
    // thread-exit destructor, so static arrays freed at exit find it intact.
    static_assert(sizeof(long) >= sizeof(RefCounted const*));
    if (!object->releasesOthers()) {
        delete object;
        return;
    }
    thread_local RefCounted const* waiting = nullptr;
    thread_local bool destroying = false;
    if (destroying) {
        object->count_.store(reinterpret_cast<long>(waiting), std::memory_order_relaxed);
        waiting = object;
        return;
    }
    destroying = true;
    delete object;
    while (waiting) {
        RefCounted const* next = waiting;
        waiting = reinterpret_cast<RefCounted const*>(next->count_.load(std::memory_order_relaxed));
        delete next;
    }
    destroying = false;
}

} // namespace zorbal::data::detail
