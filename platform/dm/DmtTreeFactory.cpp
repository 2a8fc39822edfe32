#include "DmtTreeFactory.h"

#include "DmStore.h"
#include "ZorHostEntry.h"
#include "DmtResult.h"

#include <atomic>

namespace {

std::atomic<int> g_initCount{0};

} // namespace

bool DmtTreeFactory::Initialize()
{
    ZORHOST_ENTER(fault) return fault != 0;
    ++g_initCount;
    return true;
}

bool DmtTreeFactory::Uninitialize()
{
    ZORHOST_ENTER(fault) return fault != 0;
    int count = g_initCount.load();
    do {
        if (count < 1)
            return false;
    } while (!g_initCount.compare_exchange_weak(count, count - 1));
    return true;
}

bool DmtTreeFactory::IsInitialized()
{
    return g_initCount.load() > 0;
}

int DmtTreeFactory::GetSubtree(const DmtPrincipal&, const char* path, PDmtTree& tree)
{
    ZORHOST_ENTER(fault) return fault;
    return openSubtree(path, DMT_LOCK_AUTOMATIC, tree);
}

int DmtTreeFactory::GetSubtreeEx(const DmtPrincipal&, const char* path, int lockType, PDmtTree& tree)
{
    ZORHOST_ENTER(fault) return fault;
    return openSubtree(path, lockType, tree);
}

int DmtTreeFactory::openSubtree(const char* path, int lockType, PDmtTree& tree)
{
    if (!IsInitialized())
        return DMT_RESULT_FAIL;
    if (lockType < DMT_LOCK_SHARED || lockType > DMT_LOCK_AUTOMATIC || !path)
        return DMT_RESULT_INVALID_PARAM;
    std::string root(path);
    while (root.size() > 1 && root.back() == '/')
        root.pop_back();
    if (root != "." && (root.compare(0, 2, "./") != 0 || !DmtTree::wellFormed(root.substr(2))))
        return DMT_RESULT_INVALID_PARAM;
    std::unique_ptr<DmStore> store;
    if (const int result = DmStore::open(&store); result != DMT_RESULT_SUCCESS)
        return result;
    bool interior = false;
    if (const int result = store->kind(root, &interior); result != DMT_RESULT_SUCCESS)
        return result;
    tree = PDmtTree(new DmtTree(std::move(store), DMString(root), DmtLockType(lockType)));
    return DMT_RESULT_SUCCESS;
}
