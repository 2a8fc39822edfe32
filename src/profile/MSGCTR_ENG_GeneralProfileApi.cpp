#include "MSGCTR_ENG_GeneralProfileApi.h"

#include "dm/MsgctrDmOperationFrame.h"
#include "foundation/MsgctrReport.h"

#include "MSGCTR_DmApi.h"
#include "MSGCTR_PDmtNode.h"

#include <QUuid>

#include <cstdlib>
#include <ctime>

namespace {

// An id names one child of the profiles node: a path of its own ("", "a/b", "..") would reach other nodes.
bool isProfileNodeName(const QString& id)
{
    return !id.isEmpty() && !id.contains(QLatin1Char('/')) && id != QLatin1String(".") && id != QLatin1String("..");
}

MSGCTR_ERRCODE checkProfileNodeName(const QString& id)
{
    if (isProfileNodeName(id))
        return MSGCTR_ERRCODE__SUCCESS;
    MSGCTR_ASSERT_FAIL_REPORT("isProfileNodeName(id)") << MSGCTR_VAL(id);
    return MSGCTR_ERRCODE__INVALID_ARGUMENT;
}

// How many random bits one rand() call yields, found once per process; the generator is seeded then with
// the local time.
int randomBitsPerCall()
{
    static const int bits = [] {
        int count = 0;
        for (unsigned int max = 0x7fffffffu; max != 0; max >>= 1)
            ++count;
        const std::time_t now = std::time(nullptr);
        std::tm local{};
        localtime_r(&now, &local);
        std::tm seedTime{};
        seedTime.tm_sec = local.tm_sec;
        seedTime.tm_min = local.tm_min;
        seedTime.tm_hour = local.tm_hour;
        seedTime.tm_mday = local.tm_mday;
        seedTime.tm_mon = local.tm_mon;
        seedTime.tm_year = local.tm_year;
        seedTime.tm_isdst = -1;
        std::srand(static_cast<unsigned int>(std::mktime(&seedTime)));
        std::rand();
        return count;
    }();
    return bits;
}

} // namespace

MSGCTR_ENG_GeneralProfileApi::PROFILE_ID_S::PROFILE_ID_S(const DMString& utf8Id)
    : m_id(MSGCTR_DmApi::toQStringFromUtf8DMString(utf8Id))
{
}

MSGCTR_ENG_GeneralProfileApi::PROFILE_ID_S::PROFILE_ID_S(const QString& id)
    : m_id(id)
{
}

bool MSGCTR_ENG_GeneralProfileApi::PROFILE_ID_S::operator==(const PROFILE_ID_S& other) const
{
    if (isNull() && other.isNull())
        return true;
    return m_id == other.m_id;
}

MSGCTR_ENG_GeneralProfileApi::MSGCTR_ENG_GeneralProfileApi(ProfileFromMapFunc fromMap, ProfileToMapFunc toMap,
                                                           ListAppendFunc append, ListClearFunc clear,
                                                           const QString& pathDefault, const QString& pathProfiles)
{
    setCallback(fromMap, toMap, append, clear);
    setPath(pathDefault, pathProfiles);
}

MSGCTR_ENG_GeneralProfileApi::~MSGCTR_ENG_GeneralProfileApi() = default;

void MSGCTR_ENG_GeneralProfileApi::setCallback(ProfileFromMapFunc fromMap, ProfileToMapFunc toMap,
                                               ListAppendFunc append, ListClearFunc clear)
{
    m_fromMap = fromMap;
    m_toMap = toMap;
    m_append = append;
    m_clear = clear;
}

void MSGCTR_ENG_GeneralProfileApi::setPath(const QString& pathDefault, const QString& pathProfiles)
{
    m_pathDefault = pathDefault;
    m_pathProfiles = pathProfiles;
}

DMString MSGCTR_ENG_GeneralProfileApi::pathDefault() const
{
    return MSGCTR_DmApi::toUtf8DMString(m_pathDefault);
}

DMString MSGCTR_ENG_GeneralProfileApi::pathProfiles() const
{
    return MSGCTR_DmApi::toUtf8DMString(m_pathProfiles);
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::getDefaultProfileID(QString* id)
{
    MsgctrDmOperationFrame frame;
    MSGCTR_PDmtNode node;
    MSGCTR_ERRCODE result = frame.open(pathDefault());
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().GetNode("", node.dmtNode());
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = node.GetStringValue(id);
    return result;
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::getDefaultProfileID(PROFILE_ID_S* id)
{
    return getDefaultProfileID(&id->string());
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::setDefaultProfileID(const QString& id)
{
    MsgctrDmOperationFrame frame;
    MSGCTR_PDmtNode node;
    MSGCTR_ERRCODE result = frame.open(pathDefault());
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().GetNode("", node.dmtNode());
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = node.SetStringValue(id);
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().Flush();
    return result;
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::setDefaultProfileID(const PROFILE_ID_S& id)
{
    return setDefaultProfileID(id.string());
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::getProfile(ValuesMap* map, const QString& id)
{
    MSGCTR_ERRCODE result = checkProfileNodeName(id);
    MsgctrDmOperationFrame frame;
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.open(pathProfiles());
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().GetChildValuesMap(MSGCTR_DmApi::toUtf8DMString(id), *map);
    return result;
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::getProfile(void* record, const QString& id)
{
    ValuesMap map;
    const MSGCTR_ERRCODE result = getProfile(&map, id);
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        m_fromMap(record, map);
    return result;
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::getProfile(void* record, const PROFILE_ID_S& id)
{
    return getProfile(record, id.string());
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::getFlagOfProfExists(bool* exists, const PROFILE_ID_S& id)
{
    *exists = false;
    ValuesMap map;
    const MSGCTR_ERRCODE result = getProfile(&map, id.string());
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        *exists = true;
    return result;
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::addProfile(QString* newId, const ValuesMap& map)
{
    *newId = QString();
    const QString id = newProfileId();
    const DMString node = MSGCTR_DmApi::toUtf8DMString(id);
    MsgctrDmOperationFrame frame;
    MSGCTR_ERRCODE result = frame.open(pathProfiles());
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().Begin();
    if (MSGCTR_ERRCODE_IS_SUCCESS(result)) {
        PDmtNode created;
        result = frame.tree().CreateInteriorNode(node, created);
    }
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().SetChildValuesMap(node, map);
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().Commit();
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        *newId = id;
    // A step failed with the transaction still open: nothing of the new profile may stay.
    if (frame.tree().dmtTree() && frame.tree().IsAtomic())
        frame.tree().Rollback();
    return result;
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::addProfile(QString* newId, const void* record)
{
    ValuesMap map;
    m_toMap(&map, record);
    return addProfile(newId, map);
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::addProfile(PROFILE_ID_S* newId, const void* record)
{
    return addProfile(&newId->string(), record);
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::updateProfile(const QString& id, const ValuesMap& map)
{
    MSGCTR_ERRCODE result = checkProfileNodeName(id);
    MsgctrDmOperationFrame frame;
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.open(pathProfiles());
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().SetChildValuesMap(MSGCTR_DmApi::toUtf8DMString(id), map);
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().Flush();
    return result;
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::updateProfile(const QString& id, const void* record)
{
    ValuesMap map;
    m_toMap(&map, record);
    return updateProfile(id, map);
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::updateProfile(const PROFILE_ID_S& id, const void* record)
{
    return updateProfile(id.string(), record);
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::removeProfile(const QString& id)
{
    MSGCTR_ERRCODE result = checkProfileNodeName(id);
    MsgctrDmOperationFrame frame;
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.open(pathProfiles());
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().DeleteNode(MSGCTR_DmApi::toUtf8DMString(id));
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().Flush();
    return result;
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::removeProfile(const PROFILE_ID_S& id)
{
    return removeProfile(id.string());
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::listAllProfileIDS(QStringList* ids)
{
    ids->clear();
    MsgctrDmOperationFrame frame;
    DMStringVector names;
    MSGCTR_ERRCODE result = frame.open(pathProfiles());
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().GetChildNodeNames("", names);
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        for (const DMString& name : names)
            ids->append(MSGCTR_DmApi::toQStringFromUtf8DMString(name));
    return result;
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::listAllProfileIDS(std::vector<PROFILE_ID_S>* ids)
{
    ids->clear();
    QStringList names;
    const MSGCTR_ERRCODE result = listAllProfileIDS(&names);
    for (const QString& name : names)
        ids->push_back(PROFILE_ID_S(MSGCTR_DmApi::toUtf8DMString(name)));
    return result;
}

MSGCTR_ERRCODE MSGCTR_ENG_GeneralProfileApi::listAllProfileS(void* list)
{
    m_clear(list);
    MsgctrDmOperationFrame frame;
    DMStringVector names;
    MSGCTR_ERRCODE result = frame.open(pathProfiles());
    if (MSGCTR_ERRCODE_IS_SUCCESS(result))
        result = frame.tree().GetChildNodeNames("", names);
    if (MSGCTR_ERRCODE_IS_ERROR(result))
        return result;
    ValuesMap map;
    for (const DMString& name : names) {
        result = frame.tree().GetChildValuesMap(name, map);
        if (MSGCTR_ERRCODE_IS_ERROR(result))
            return result;
        m_append(list, PROFILE_ID_S(name), map);
    }
    return MSGCTR_ERRCODE__SUCCESS;
}

QString MSGCTR_ENG_GeneralProfileApi::newProfileId()
{
    const int bitsPerCall = randomBitsPerCall();
    // The 128 bits as four 32-bit words, filled from the last word to the first.
    quint32 words[4];
    for (int w = 3; w >= 0; --w) {
        quint32 word = 0;
        for (int filled = 0; filled < 32; filled += bitsPerCall)
            word |= static_cast<quint32>(std::rand()) << filled;
        words[w] = word;
    }
    // The words laid over the UUID's fields as they lie in memory on the phone (little-endian).
    const auto byteOf = [&](int i) { return static_cast<uchar>(words[i / 4] >> (8 * (i % 4))); };
    QUuid uuid;
    uuid.data1 = words[0];
    uuid.data2 = static_cast<ushort>(words[1]);
    uuid.data3 = static_cast<ushort>(words[1] >> 16);
    for (int i = 0; i < 8; ++i)
        uuid.data4[i] = byteOf(8 + i);
    uuid.data4[0] = (uuid.data4[0] & 0x3F) | 0x80; // variant: RFC 4122
    uuid.data3 = (uuid.data3 & 0x0FFF) | 0x4000;   // version 4: random
    return uuid.toString();
}
