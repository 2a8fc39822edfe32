#include "DmtTree.h"

#include "DmStore.h"
#include "ZorHostEntry.h"
#include "DmtNode.h"
#include "DmtResult.h"
#include "DmtTreeFactory.h"

namespace {

std::string nameOf(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

bool validName(const std::string& name)
{
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

} // namespace

DmtTree::DmtTree(std::unique_ptr<DmStore> store, DMString root, DmtLockType lock)
    : m_store(std::move(store))
    , m_root(std::move(root))
    , m_lock(lock)
{
}

DmtTree::~DmtTree()
{
    if (m_transaction)
        m_store->exec("ROLLBACK");
    else if (m_pendingWrites && m_store->exec("COMMIT") != DMT_RESULT_SUCCESS && m_store->inTransaction())
        m_store->exec("ROLLBACK");
    DmStore::release(std::move(m_store));
}

bool DmtTree::wellFormed(const std::string& relative)
{
    std::size_t start = 0;
    while (true) {
        const std::size_t slash = relative.find('/', start);
        const std::string segment = relative.substr(start, slash == std::string::npos ? std::string::npos : slash - start);
        if (!validName(segment))
            return false;
        if (slash == std::string::npos)
            return true;
        start = slash + 1;
    }
}

int DmtTree::absolute(const char* path, std::string* out) const
{
    if (!DmtTreeFactory::IsInitialized())
        return DMT_RESULT_FAIL;
    const std::string relative(path ? path : "");
    if (relative.empty()) {
        *out = m_root.str();
        return DMT_RESULT_SUCCESS;
    }
    if (!wellFormed(relative))
        return DMT_RESULT_INVALID_PARAM;
    *out = m_root.str() + '/' + relative;
    return DMT_RESULT_SUCCESS;
}

int DmtTree::write(const std::function<int()>& change)
{
    if (m_lock == DMT_LOCK_SHARED)
        return DMT_RESULT_READ_ONLY;
    if (!m_transaction && !m_pendingWrites) {
        if (const int result = m_store->exec("BEGIN IMMEDIATE"); result != DMT_RESULT_SUCCESS)
            return result;
        m_pendingWrites = true;
    }
    if (const int result = m_store->exec("SAVEPOINT dmt_change"); result != DMT_RESULT_SUCCESS)
        return result;
    const int result = change();
    if (result != DMT_RESULT_SUCCESS)
        m_store->exec("ROLLBACK TO dmt_change");
    m_store->exec("RELEASE dmt_change");
    return result;
}

int DmtTree::GetNode(const char* path, PDmtNode& node)
{
    ZORHOST_ENTER(fault) return fault;
    std::string target;
    if (const int result = absolute(path, &target); result != DMT_RESULT_SUCCESS)
        return result;
    bool interior = false;
    if (const int result = m_store->kind(target, &interior); result != DMT_RESULT_SUCCESS)
        return result;
    node = PDmtNode(new DmtNode(PDmtTree(this), target, !interior));
    return DMT_RESULT_SUCCESS;
}

int DmtTree::DeleteNode(const char* path)
{
    ZORHOST_ENTER(fault) return fault;
    std::string target;
    if (const int result = absolute(path, &target); result != DMT_RESULT_SUCCESS)
        return result;
    return write([&]() -> int {
        bool interior = false;
        if (const int result = m_store->kind(target, &interior); result != DMT_RESULT_SUCCESS)
            return result;
        if (target == ".")
            return DMT_RESULT_NOT_ALLOWED;
        return m_store->remove(target);
    });
}

int DmtTree::CreateLeafNode(const char* path, PDmtNode& node, const DmtData& value)
{
    ZORHOST_ENTER(fault) return fault;
    if (value.GetType() == DMT_DATA_NULL)
        return DMT_RESULT_INVALID_PARAM;
    return createNode(path, node, &value);
}

int DmtTree::CreateInteriorNode(const char* path, PDmtNode& node)
{
    ZORHOST_ENTER(fault) return fault;
    return createNode(path, node, nullptr);
}

int DmtTree::createNode(const char* path, PDmtNode& node, const DmtData* value)
{
    std::string target;
    if (const int result = absolute(path, &target); result != DMT_RESULT_SUCCESS)
        return result;
    const int result = write([&]() -> int {
        bool interior = false;
        int found = m_store->kind(target, &interior);
        if (found == DMT_RESULT_SUCCESS)
            return DMT_RESULT_ALREADY_EXISTS;
        if (found != DMT_RESULT_NOT_FOUND)
            return found;
        // Walk down from the subtree's root, creating the interior parents that are missing.
        std::string at = m_root.str();
        if (const int rootFound = m_store->kind(at, &interior); rootFound != DMT_RESULT_SUCCESS)
            return rootFound;
        if (!interior)
            return DMT_RESULT_NOT_ALLOWED;
        const std::string relative = target.substr(at.size() + 1);
        std::size_t start = 0;
        for (std::size_t slash; (slash = relative.find('/', start)) != std::string::npos; start = slash + 1) {
            const std::string parent = at;
            at += '/' + relative.substr(start, slash - start);
            found = m_store->kind(at, &interior);
            if (found == DMT_RESULT_NOT_FOUND)
                found = m_store->insert(at, parent, nameOf(at), nullptr);
            else if (found == DMT_RESULT_SUCCESS && !interior)
                return DMT_RESULT_NOT_ALLOWED;
            if (found != DMT_RESULT_SUCCESS)
                return found;
        }
        return m_store->insert(target, at, nameOf(target), value);
    });
    if (result == DMT_RESULT_SUCCESS)
        node = PDmtNode(new DmtNode(PDmtTree(this), target, value != nullptr));
    return result;
}

int DmtTree::GetChildValuesMap(const char* path, DMMap<DMString, DmtData>& leaves)
{
    ZORHOST_ENTER(fault) return fault;
    std::string target;
    if (const int result = absolute(path, &target); result != DMT_RESULT_SUCCESS)
        return result;
    DMMap<DMString, DmtData> read;
    if (const int result = m_store->childLeaves(target, &read); result != DMT_RESULT_SUCCESS)
        return result;
    // Only a node without leaves needs a second look: missing, a leaf itself, or interior and bare.
    if (read.empty()) {
        bool interior = false;
        if (const int result = m_store->kind(target, &interior); result != DMT_RESULT_SUCCESS)
            return result;
        if (!interior)
            return DMT_RESULT_NOT_ALLOWED;
    }
    leaves = std::move(read);
    return DMT_RESULT_SUCCESS;
}

int DmtTree::SetChildValuesMap(const char* path, const DMMap<DMString, DmtData>& leaves)
{
    ZORHOST_ENTER(fault) return fault;
    std::string target;
    if (const int result = absolute(path, &target); result != DMT_RESULT_SUCCESS)
        return result;
    for (const auto& leaf : leaves)
        if (!validName(leaf.first.str()) || leaf.second.GetType() == DMT_DATA_NULL)
            return DMT_RESULT_INVALID_PARAM;
    return write([&]() -> int {
        bool interior = false;
        if (const int result = m_store->kind(target, &interior); result != DMT_RESULT_SUCCESS)
            return result;
        if (!interior)
            return DMT_RESULT_NOT_ALLOWED;
        DMStringVector children;
        DMMap<DMString, DmtData> existing;
        if (const int result = m_store->childNames(target, &children); result != DMT_RESULT_SUCCESS)
            return result;
        if (const int result = m_store->childLeaves(target, &existing); result != DMT_RESULT_SUCCESS)
            return result;
        for (const DMString& child : children)
            if (!existing.contains(child) && leaves.contains(child))
                return DMT_RESULT_NOT_ALLOWED; // a leaf cannot replace an interior node
        for (const auto& leaf : existing)
            if (!leaves.contains(leaf.first))
                if (const int result = m_store->remove(target + '/' + leaf.first.str()); result != DMT_RESULT_SUCCESS)
                    return result;
        for (const auto& leaf : leaves) {
            const std::string at = target + '/' + leaf.first.str();
            const int result = existing.contains(leaf.first) ? m_store->update(at, leaf.second)
                                                             : m_store->insert(at, target, leaf.first.str(), &leaf.second);
            if (result != DMT_RESULT_SUCCESS)
                return result;
        }
        return DMT_RESULT_SUCCESS;
    });
}

int DmtTree::GetChildNodeNames(const char* path, DMStringVector& names)
{
    ZORHOST_ENTER(fault) return fault;
    std::string target;
    if (const int result = absolute(path, &target); result != DMT_RESULT_SUCCESS)
        return result;
    bool interior = false;
    if (const int result = m_store->kind(target, &interior); result != DMT_RESULT_SUCCESS)
        return result;
    if (!interior)
        return DMT_RESULT_NOT_ALLOWED;
    DMStringVector read;
    if (const int result = m_store->childNames(target, &read); result != DMT_RESULT_SUCCESS)
        return result;
    names = std::move(read);
    return DMT_RESULT_SUCCESS;
}

int DmtTree::Flush()
{
    ZORHOST_ENTER(fault) return fault;
    if (!DmtTreeFactory::IsInitialized())
        return DMT_RESULT_FAIL;
    if (!m_pendingWrites)
        return DMT_RESULT_SUCCESS;
    const int result = m_store->exec("COMMIT");
    if (result != DMT_RESULT_SUCCESS && m_store->inTransaction())
        return result; // still pending: a later Flush may succeed
    m_pendingWrites = false;
    return result;
}

int DmtTree::Begin()
{
    ZORHOST_ENTER(fault) return fault;
    if (!DmtTreeFactory::IsInitialized())
        return DMT_RESULT_FAIL;
    if (m_transaction)
        return DMT_RESULT_TX_OPEN;
    if (m_pendingWrites) {
        if (const int result = m_store->exec("COMMIT"); result != DMT_RESULT_SUCCESS)
            return result;
        m_pendingWrites = false;
    }
    if (const int result = m_store->exec(m_lock == DMT_LOCK_SHARED ? "BEGIN" : "BEGIN IMMEDIATE");
        result != DMT_RESULT_SUCCESS)
        return result;
    m_transaction = true;
    return DMT_RESULT_SUCCESS;
}

int DmtTree::Commit()
{
    ZORHOST_ENTER(fault) return fault;
    if (!DmtTreeFactory::IsInitialized() || !m_transaction)
        return DMT_RESULT_FAIL;
    const int result = m_store->exec("COMMIT");
    m_transaction = m_store->inTransaction();
    return result;
}

int DmtTree::Rollback()
{
    ZORHOST_ENTER(fault) return fault;
    if (!DmtTreeFactory::IsInitialized() || !m_transaction)
        return DMT_RESULT_FAIL;
    const int result = m_store->exec("ROLLBACK");
    m_transaction = false;
    return result;
}

int DmtTree::readValue(const std::string& path, DmtData* value)
{
    return m_store->value(path, value);
}

int DmtTree::writeValue(const std::string& path, const DmtData& value)
{
    if (value.GetType() == DMT_DATA_NULL)
        return DMT_RESULT_INVALID_PARAM;
    return write([&]() -> int {
        bool interior = false;
        if (const int result = m_store->kind(path, &interior); result != DMT_RESULT_SUCCESS)
            return result;
        if (interior)
            return DMT_RESULT_NOT_ALLOWED;
        return m_store->update(path, value);
    });
}
