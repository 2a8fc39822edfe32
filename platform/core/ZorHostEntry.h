// The entry of every platform operation. The operation's name comes from the function it stands in, so it
// is written nowhere else; each library declares the names of all its operations when it is loaded, so
// the control interface can refuse a name no library has.
//
//     int TAPI_SMS_GetServiceCenter(char* address)
//     {
//         ZORHOST_ENTER(fault) return fault;   // counted; a pending fault is answered here
//         ...
//
//     QString UTIL_DateTime::dateToString(...)
//     {
//         ZORHOST_COUNT();                      // counted only: the operation has no way to fail
//         ...
//
// The entry costs an atomic increment and a load in the table mapped from the host root; faults and
// counts are shared by every process using that root.
#pragma once

#include <atomic>
#include <cstdint>

namespace ZorHostCore {

// One operation in the table under the host root, shared by every process that uses that root.
struct OperationSlot {
    // 0: no fault; else the fault's result in the upper half and the calls it still fails in the lower
    // (all ones: until cleared).
    std::atomic<std::uint64_t> fault;
    std::atomic<std::int64_t> calls;
    char name[112]; // NUL-terminated; empty while the slot is free
};
static_assert(sizeof(OperationSlot) == 128, "one slot per two cache lines, the table's layout on disk");
static_assert(std::atomic<std::uint64_t>::is_always_lock_free, "slots are shared between processes");

// An entry site, one per operation, made at compile time; `slot` is found on the first call.
struct Operation {
    const char* signature; // the function's signature; the operation's name is its qualified name
    bool mayFail;
    std::atomic<OperationSlot*> slot{nullptr};
};

// The slow paths of the entry: finding the operation's slot, and answering a pending fault.
OperationSlot* attach(Operation& operation);
bool fire(OperationSlot& slot, int* faultResult);

// Every module with entries declares its operations once when it is loaded.
void declare(Operation* const* begin, Operation* const* end);

inline bool enter(Operation& operation, int* faultResult)
{
    OperationSlot* slot = operation.slot.load(std::memory_order_acquire);
    if (!slot)
        slot = attach(operation);
    slot->calls.fetch_add(1, std::memory_order_relaxed);
    return slot->fault.load(std::memory_order_relaxed) != 0 && fire(*slot, faultResult);
}

} // namespace ZorHostCore

// The linker gathers every entry site of a module in this section and marks its bounds.
extern "C" {
extern ZorHostCore::Operation* const __start_zorhost_operations[] __attribute__((weak, visibility("hidden")));
extern ZorHostCore::Operation* const __stop_zorhost_operations[] __attribute__((weak, visibility("hidden")));
}

namespace {
[[maybe_unused]] const bool zorhostOperationsDeclared =
    (ZorHostCore::declare(__start_zorhost_operations, __stop_zorhost_operations), true);
}

#define ZORHOST_OPERATION_(mayFail)                                                                       \
    static ZorHostCore::Operation zorhostOperation_{__PRETTY_FUNCTION__, mayFail};                        \
    [[maybe_unused]] static ZorHostCore::Operation* const zorhostOperationSite_                           \
        __attribute__((section("zorhost_operations"), used)) = &zorhostOperation_

// The first statement of an operation that can fail. The statement written after it runs when a fault is
// pending, with `fault` holding the fault's result, and returns the operation's failure.
#define ZORHOST_ENTER(fault)                                                                              \
    ZORHOST_OPERATION_(true);                                                                             \
    if (int fault = 0; ZorHostCore::enter(zorhostOperation_, &fault))

// The first statement of an operation that cannot fail: the call is counted, and faults are refused for it.
#define ZORHOST_COUNT()                                                                                   \
    ZORHOST_OPERATION_(false);                                                                            \
    ZorHostCore::enter(zorhostOperation_, nullptr)
