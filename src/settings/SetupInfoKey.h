// The table of the messaging keys, expanded from their one declaration (SetupInfoKeys.h), and the typed
// path every getter and setter of MSGCTR_ENG_SetupInfo goes through. Internal to the library; msgctr
// compiles it in as the tests do, since nothing of it is exported.
#pragma once

#include "settings/SetupInfoKeys.h"

#include "MSGCTR_ENG_Setup.h"
#include "MSGCTR_ERRCODE.h"

#include <QString>
#include <QVariant>

#include <array>

class SetupInfoKey {
public:
    // How a key's value is encoded in the store (see MSGCTR_ENG_Setup).
    enum VALUE_TYPE_E {
        VALUE_TYPE__INT,
        VALUE_TYPE__UINT,
        VALUE_TYPE__BOOL,
        VALUE_TYPE__TEXT,       // the store's text; "[", "]", CR, LF and "=" refused
        VALUE_TYPE__ANY_TEXT,   // any text, data-stream encoded
        VALUE_TYPE__TEXT_LIST,  // data-stream encoded
        VALUE_TYPE__INT_LIST,   // decimal numbers joined by ","
    };
    enum ACCESS_E {
        ACCESS__GET,             // applications only read it; products configure it
        ACCESS__GET_SET,
        ACCESS__STATIC_GET_SET,  // its own write-through store per write
    };

    const char* group;
    const char* key;
    VALUE_TYPE_E type;
    ACCESS_E access;
    // int, uint, bool, QString (null or empty as the key has it), QStringList or QList<int>.
    QVariant defaultValue;

    using Table = std::array<SetupInfoKey, SETUP_INFO_KEY_COUNT>;
    // Every key, in the order of the declaration.
    static const Table& table();
    static const SetupInfoKey& of(SetupInfoKeyId id) { return table()[id]; }
    // Null when the key is not in the table.
    static const SetupInfoKey* find(const QString& group, const QString& key);

    // Values as the defaults are kept.
    QVariant read(MSGCTR_ENG_Setup& store) const;
    MSGCTR_ERRCODE write(MSGCTR_ENG_Setup& store, const QVariant& value) const;
};
