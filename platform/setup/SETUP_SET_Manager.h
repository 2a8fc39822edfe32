// The platform configuration store: named groups of named keys holding texts, integers and booleans.
//
// On the host every store is a key file ("[GROUP]" sections of "KEY=value" lines, UTF-8) under the host
// root: state/setup/apps/<id>.conf for a store opened by application id, state/setup/files/<name>.conf for
// one opened by name (the name percent-encoded where it is not a plain file name). A missing file is an
// empty store. Every read-modify-write of a file happens under its cross-process lock and replaces the
// file atomically, so a crash leaves the old or the new file and concurrent writers of different keys
// never lose each other's values.
//
// Handles opened with flush true write through: a write is durable before it returns. Handles opened with
// flush false keep their writes in memory until flush(); destroying one without flushing drops them.
// Reads see the handle's own unflushed writes, else the file as it is on disk now: a durable write by any
// handle or process is seen at once (a changed file is noticed by its identity, size and times).
//
// A damaged file never stops a reader: lines that are not UTF-8, hold NUL bytes, lack "=" or stand
// outside a group are skipped, reported once on stderr, and their keys read as missing. The next write
// of the file leaves them out.
//
// Values are kept verbatim, so a text may hold any character except NUL, CR, LF and unpaired surrogates
// (isStorableText()). Group and key names must pass isValidName(). Writes refused for either reason
// answer false with errno EINVAL.
//
// Every write answers true or false; on false errno tells why (ENOSPC when the disk is full) and the store
// is unchanged. Fault injection names: "SETUP_SET_Manager::getInt", "::getUInt", "::getBool",
// "::getString", "::setInt", "::setUInt", "::setBool", "::setString", "::removeEntry", "::flush". A faulted
// write or flush answers false with errno set to the fault's result; a faulted read answers false and
// yields the default.
#pragma once

#include "AM_Global.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class SETUP_SET_Manager {
public:
    SETUP_SET_Manager(AM_Global::Apps app, bool flush);
    // `create` makes the (empty) file at once when it does not exist yet; otherwise the first durable
    // write creates it.
    SETUP_SET_Manager(const QString& name, bool flush, bool create);
    virtual ~SETUP_SET_Manager();
    SETUP_SET_Manager(const SETUP_SET_Manager&) = delete;
    SETUP_SET_Manager& operator=(const SETUP_SET_Manager&) = delete;

    // Reads: true when the key holds a value of the type asked for; otherwise *value receives the default
    // and the answer is false. Integers are decimal, booleans "true" or "false" ("1" and "0" are read too).
    bool getInt(const QString& group, const QString& key, int* value, int defaultValue) const;
    bool getUInt(const QString& group, const QString& key, unsigned int* value, unsigned int defaultValue) const;
    bool getBool(const QString& group, const QString& key, bool* value, bool defaultValue) const;
    // `emptyIsUnset`: an empty stored text reads as the default, and writing an empty text removes the key.
    // Without it an empty text is a value like any other (the key "K=" reads as an empty, non-null text).
    bool getString(const QString& group, const QString& key, QString* value, const QString& defaultValue,
                   bool emptyIsUnset) const;

    bool setInt(const QString& group, const QString& key, int value);
    bool setUInt(const QString& group, const QString& key, unsigned int value);
    bool setBool(const QString& group, const QString& key, bool value);
    bool setString(const QString& group, const QString& key, const QString& value, bool emptyIsUnset);
    bool removeEntry(const QString& group, const QString& key);

    // Makes the buffered writes durable (true at once when there are none or the handle writes through).
    // On false the writes stay buffered.
    virtual bool flush();

    bool isFlushMode() const { return m_flush; }
    bool hasUnflushedWrites() const { return !m_pending.empty(); }
    // The key file behind this store.
    QString fileName() const { return m_path; }
    // As this handle reads them (unflushed writes included), in file order.
    QStringList groups() const;
    QStringList keys(const QString& group) const;

    static bool isValidName(const QString& name);
    static bool isStorableText(const QString& text);

private:
    struct Write {
        QString group;
        QString key;
        std::optional<QString> value; // none: removed
    };
    bool lookup(const QString& group, const QString& key, QString* raw) const;
    QStringList listed(const QString* group) const;
    bool write(const QString& group, const QString& key, const std::optional<QString>& value);

    QString m_path;
    bool m_flush;
    std::vector<Write> m_pending;
};
