#include "UTIL_Language.h"

#include "ZorHostUtilControl.h"

#include "ZorHostCore.h"
#include "ZorHostEntry.h"
#include "ZorHostStateFile.h"

#include <cerrno>

namespace {

struct Language {
    const char* code;
    const char* name;
    int cellBroadcast;
};

// Indexed by language id.
const Language kLanguages[] = {
    {"en-us", "English", 1},    {"en-gb", "English", 1},    {"de-de", "German", 0},
    {"it-it", "Italian", 2},    {"fr-fr", "French", 3},     {"es-es", "Spanish", 4},
    {"nl-nl", "Dutch", 5},      {"sv-se", "Swedish", 6},    {"da-dk", "Danish", 7},
    {"pt-pt", "Portuguese", 8}, {"fi-fi", "Finnish", 9},    {"nb-no", "Norwegian", 10},
    {"el-gr", "Greek", 11},     {"tr-tr", "Turkish", 12},   {"hu-hu", "Hungarian", 13},
    {"pl-pl", "Polish", 14},    {"cs-cz", "Czech", 32},     {"pt-br", "Portuguese", 8},
    {"ru-ru", "Russian", 15},   {"zh-cn", "Chinese", 15},   {"zh-tw", "Chinese", 15},
};
constexpr int kLanguageCount = int(sizeof kLanguages / sizeof kLanguages[0]);
constexpr int kFactoryId = 0;
constexpr int kUnspecified = 15;

const char kCodePrefix[] = "CODE=";

QString languageFile()
{
    return ZorHostCore::stateDir(QStringLiteral("language")) + QStringLiteral("/language.conf");
}

int idOfCode(const QString& code)
{
    for (int id = 0; id < kLanguageCount; ++id)
        if (code == QLatin1String(kLanguages[id].code))
            return id;
    return -1;
}

// A file that names no known language leaves the factory language in force.
int systemId()
{
    ZorHostCore::StateFile file(languageFile());
    const QByteArray data = file.read();
    for (const QByteArray& rawLine : data.split('\n')) {
        const QByteArray line = rawLine.trimmed();
        if (line.startsWith(kCodePrefix)) {
            const int id = idOfCode(QString::fromUtf8(line.mid(int(sizeof kCodePrefix) - 1)).trimmed());
            return id < 0 ? kFactoryId : id;
        }
    }
    return kFactoryId;
}

} // namespace

QString UTIL_Language::getSystemLanguageCode()
{
    ZORHOST_ENTER(fault) return QString();
    return QLatin1String(kLanguages[systemId()].code);
}

int UTIL_Language::getSystemLanguageId()
{
    ZORHOST_ENTER(fault) return fault;
    return systemId();
}

QString UTIL_Language::getSystemLanguageString()
{
    ZORHOST_ENTER(fault) return QString();
    return QLatin1String(kLanguages[systemId()].name);
}

int UTIL_Language::getLanguageIndexByLanId(int id)
{
    ZORHOST_ENTER(fault) return fault;
    if (id < 0 || id >= kLanguageCount)
        return kUnspecified;
    return kLanguages[id].cellBroadcast;
}

namespace ZorHost {

bool setSystemLanguage(const QString& code)
{
    if (idOfCode(code) < 0) {
        errno = EINVAL;
        return false;
    }
    int err = 0;
    {
        ZorHostCore::StateFile file(languageFile());
        errno = 0;
        ZorHostCore::StateFileLocker locker(file);
        if (!locker.locked())
            err = errno ? errno : EAGAIN;
        else if (!file.write("[SYSTEM]\n" + QByteArray(kCodePrefix) + code.toLatin1() + '\n'))
            err = errno;
    }
    if (err == 0)
        return true;
    errno = err;
    return false;
}

QStringList systemLanguages()
{
    QStringList codes;
    for (const Language& l : kLanguages)
        codes.append(QLatin1String(l.code));
    return codes;
}

} // namespace ZorHost
