// The profile engine, independent of the profile kind: profiles are interior nodes of the DM tree named
// by their ids, with one leaf per field, under a profiles node; a string leaf names the default profile.
// Each kind binds the engine to its paths and to four conversion callbacks. Every operation opens the
// factory and a subtree for its own length; nothing is cached between calls.
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include "DMMap.h"
#include "DMString.h"
#include "DmtData.h"

#include <QString>
#include <QStringList>

#include <vector>

class MSGCTR_EXPORT MSGCTR_ENG_GeneralProfileApi {
public:
    // A profile's id: the name of its DM node, a version-4 UUID in braces. Null and empty both count as null.
    class MSGCTR_EXPORT PROFILE_ID_S {
    public:
        PROFILE_ID_S() = default;
        explicit PROFILE_ID_S(const DMString& utf8Id);
        explicit PROFILE_ID_S(const QString& id);

        bool isNull() const { return m_id.isEmpty(); }
        void nullify() { m_id = QString(); }
        // Two null ids are equal; otherwise the texts are compared exactly.
        bool operator==(const PROFILE_ID_S& other) const;
        bool operator!=(const PROFILE_ID_S& other) const { return !(*this == other); }
        QString string() const { return m_id; }
        QString& string() { return m_id; }

    private:
        QString m_id;
    };

    using ValuesMap = DMMap<DMString, DmtData>;
    // Fills a record from the leaves of one profile node.
    using ProfileFromMapFunc = void (*)(void* record, const ValuesMap& map);
    // Writes a record's fields into a values map.
    using ProfileToMapFunc = void (*)(ValuesMap* map, const void* record);
    // Empties the caller's list.
    using ListClearFunc = void (*)(void* list);
    // Converts the map to a record and appends (id, record) to the caller's list.
    using ListAppendFunc = void (*)(void* list, const PROFILE_ID_S& id, const ValuesMap& map);

    MSGCTR_ENG_GeneralProfileApi(ProfileFromMapFunc fromMap, ProfileToMapFunc toMap, ListAppendFunc append,
                                 ListClearFunc clear, const QString& pathDefault, const QString& pathProfiles);
    virtual ~MSGCTR_ENG_GeneralProfileApi();

    void setCallback(ProfileFromMapFunc fromMap, ProfileToMapFunc toMap, ListAppendFunc append, ListClearFunc clear);
    void setPath(const QString& pathDefault, const QString& pathProfiles);
    DMString pathDefault() const;
    DMString pathProfiles() const;

    // The default leaf's string. *id is untouched when the leaf cannot be read, empty when its value is not
    // a string.
    MSGCTR_ERRCODE getDefaultProfileID(QString* id);
    MSGCTR_ERRCODE getDefaultProfileID(PROFILE_ID_S* id);
    // Written and flushed as given: the id is not checked against the profiles.
    MSGCTR_ERRCODE setDefaultProfileID(const QString& id);
    MSGCTR_ERRCODE setDefaultProfileID(const PROFILE_ID_S& id);

    MSGCTR_ERRCODE getProfile(ValuesMap* map, const QString& id);
    // On failure the record is not touched.
    MSGCTR_ERRCODE getProfile(void* record, const QString& id);
    MSGCTR_ERRCODE getProfile(void* record, const PROFILE_ID_S& id);
    // *exists is true exactly when the profile's values can be read; a missing profile also returns an error.
    MSGCTR_ERRCODE getFlagOfProfExists(bool* exists, const PROFILE_ID_S& id);

    // Creates the profile node under a new id in one transaction, rolled back when a step fails. *newId is
    // the new id on success and null otherwise.
    MSGCTR_ERRCODE addProfile(QString* newId, const ValuesMap& map);
    MSGCTR_ERRCODE addProfile(QString* newId, const void* record);
    MSGCTR_ERRCODE addProfile(PROFILE_ID_S* newId, const void* record);

    // Replaces the profile's leaves and flushes.
    MSGCTR_ERRCODE updateProfile(const QString& id, const ValuesMap& map);
    MSGCTR_ERRCODE updateProfile(const QString& id, const void* record);
    MSGCTR_ERRCODE updateProfile(const PROFILE_ID_S& id, const void* record);

    // Deletes the profile node and flushes; the default leaf is left as it is.
    MSGCTR_ERRCODE removeProfile(const QString& id);
    MSGCTR_ERRCODE removeProfile(const PROFILE_ID_S& id);

    // The profiles node's children in the DM library's order.
    MSGCTR_ERRCODE listAllProfileIDS(QStringList* ids);
    MSGCTR_ERRCODE listAllProfileIDS(std::vector<PROFILE_ID_S>* ids);
    // Clears the list first, then appends each profile; stops at the first profile that cannot be read.
    MSGCTR_ERRCODE listAllProfileS(void* list);

    // A new random version-4 UUID in QUuid's text form, e.g. "{1b4e28ba-2fa1-41d2-883f-0016d3cca427}".
    static QString newProfileId();

private:
    ProfileFromMapFunc m_fromMap = nullptr;
    ProfileToMapFunc m_toMap = nullptr;
    ListClearFunc m_clear = nullptr;
    ListAppendFunc m_append = nullptr;
    QString m_pathDefault;
    QString m_pathProfiles;
};
