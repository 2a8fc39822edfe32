// Typed, defaulted access to the platform configuration store. Integers, booleans and plain texts use the
// store's own values; byte arrays, arbitrary texts and lists are encoded into texts the store can keep.
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include "SETUP_SET_Manager.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

class MSGCTR_EXPORT MSGCTR_ENG_Setup : public SETUP_SET_Manager {
public:
    enum FLUSH_MODE_E {
        FLUSH_MODE__FLUSH = 0,      // every write reaches permanent storage before it returns
        FLUSH_MODE__NOT_FLUSH = 1,  // writes stay in memory until flush()
    };

    // The messaging library's application id in the store.
    static constexpr AM_Global::Apps MSGCTR_APP_ID = static_cast<AM_Global::Apps>(3);

    MSGCTR_ENG_Setup(AM_Global::Apps app, FLUSH_MODE_E mode);
    // Both flags of the by-name store (flush, create) follow the mode.
    MSGCTR_ENG_Setup(const QString& name, FLUSH_MODE_E mode);
    ~MSGCTR_ENG_Setup() override;

    SETUP_SET_Manager& objSetupSetManager() { return *this; }

    // Reads: a missing key yields the default.
    void getEntry(const QString& group, const QString& key, int* out, int defaultValue);
    void getEntry(const QString& group, const QString& key, unsigned int* out, unsigned int defaultValue);
    void getEntry(const QString& group, const QString& key, bool* out, bool defaultValue);
    void getEntry(const QString& group, const QString& key, QString* out, const QString& defaultValue, bool flag);
    // A damaged entry leaves *out as the caller had it.
    void getEntry(const QString& group, const QString& key, QByteArray* out, const QByteArray& defaultValue);
    void getEntryAnyQstr(const QString& group, const QString& key, QString* out, const QString& defaultValue);
    void getEntry(const QString& group, const QString& key, QStringList* out, const QStringList& defaultValue);
    // A stored text that is not a list of decimal numbers yields an empty list.
    void getEntry(const QString& group, const QString& key, std::vector<int>* out,
                  const std::vector<int>& defaultValue);
    void getEntry(const QString& group, const QString& key, std::vector<unsigned int>* out,
                  const std::vector<unsigned int>& defaultValue);

    // Writes: 0, MSGCTR_ERRCODE__SETUP_WRITE_NO_SPACE, MSGCTR_ERRCODE__SETUP_WRITE_FAIL, and for texts
    // the store cannot keep MSGCTR_ERRCODE__SETUP_INVALID_CHAR (then nothing is written).
    MSGCTR_ERRCODE setEntry(const QString& group, const QString& key, int value);
    MSGCTR_ERRCODE setEntry(const QString& group, const QString& key, unsigned int value);
    MSGCTR_ERRCODE setEntry(const QString& group, const QString& key, bool value);
    MSGCTR_ERRCODE setEntry(const QString& group, const QString& key, const QString& value, bool flag);
    MSGCTR_ERRCODE setEntry(const QString& group, const QString& key, const QByteArray& value);
    MSGCTR_ERRCODE setEntryAnyQstr(const QString& group, const QString& key, const QString& value);
    MSGCTR_ERRCODE setEntry(const QString& group, const QString& key, const QStringList& value);
    MSGCTR_ERRCODE setEntry(const QString& group, const QString& key, const std::vector<int>& value);
    MSGCTR_ERRCODE setEntry(const QString& group, const QString& key, const std::vector<unsigned int>& value);

    // Flushes through the store's virtual flush(), which this one hides so that callers of this layer get
    // a result code; const only to tell the two apart.
    MSGCTR_ERRCODE flush() const;

    static bool hexQstring2ByteArray(const QString& text, QByteArray* out);
    static void byteArray2HexQstring(const QByteArray& bytes, QString* out);

    // False when a part is not a decimal int; *out is then empty.
    static bool toIntVectorFromString(std::vector<int>* out, const QString& text, const QString& separator);
    static QString toStringFromIntVector(const std::vector<int>& vector, const QString& separator);

    static QString invalidCharChkRegExpForStringToSaveToCfg();
    static QString validCharChkRegExpForStringToSaveToCfg();
    static bool isValidStringToSaveToCfg(const QString& text);

    // The data stream version of every encoded text and list: stored bytes must not change with Qt.
    static constexpr int DATA_STREAM_VERSION = 20;  // QDataStream::Qt_6_0
};
