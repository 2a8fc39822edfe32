// The key files of the configuration store: "[GROUP]" sections of "KEY=value" lines, UTF-8, parsed once per
// version of the file and shared by every handle of the process.
#pragma once

#include "ZorHostStateFile.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace SetupKeyFile {

class Contents {
public:
    // Null when the group or key is absent.
    const QString* value(const QString& group, const QString& key) const;
    void set(const QString& group, const QString& key, const QString& value);
    void remove(const QString& group, const QString& key);
    QStringList groups() const;
    QStringList keys(const QString& group) const;

    QByteArray serialize() const;
    // Damaged lines are skipped, each reported on stderr with `path` and its line number.
    static Contents parse(const QByteArray& data, const QString& path);

private:
    struct Group {
        QString name;
        QStringList keys; // file order
        QHash<QString, QString> values;
    };
    const Group* findGroup(const QString& name) const;
    std::vector<Group> m_groups;
};

using ContentsPtr = std::shared_ptr<const Contents>;

// The file as it is on disk now (an absent file reads as empty contents), read without a lock: writers
// replace it atomically. The parse is reused while one stat shows the same file (inode, size, times). False
// with errno set when the file cannot be read; a file that is not a regular file (a FIFO, a folder) is
// reported once on stderr, never opened for a blocking read, and fails with ENOTSUP.
bool load(const QString& path, ContentsPtr* contents);

// One version of a file as a reader saw it: a reader that keeps it revalidates it with one stat and no
// look-up. The hold keeps the stamp meaningful while the version is kept.
struct Version {
    ZorHostCore::FileStamp stamp;
    std::shared_ptr<ZorHostCore::FileHold> hold;
    ContentsPtr contents;
};
// As load(), starting from the version *seen (of the same path) and leaving the current one there.
bool load(const QString& path, const QByteArray& encodedPath, Version* seen);

// Read-modify-write under the writers' cross-process lock, replacing the file atomically. `factory` stands
// for an absent file. False with errno set on failure (ENOTSUP for a file that is not a regular file, which
// is left as it is); the file is then unchanged.
bool update(const QString& path, const std::function<void(Contents&)>& change, const Contents& factory = Contents());

// Group and key names: not empty, no "[", "]", "=", CR, LF or NUL, no blank at either end, not starting
// with a comment mark ("#", ";"), no unpaired surrogate.
bool isValidName(const QString& name);
// Values are kept verbatim on one line: everything except NUL, CR, LF and unpaired surrogates.
bool isStorableText(const QString& text);

QString boolText(bool value);
bool parseBool(const QString& text, bool* value);

void forgetCachedFiles();

} // namespace SetupKeyFile
