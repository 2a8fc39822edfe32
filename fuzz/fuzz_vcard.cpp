// msgctr's vCard reader: any file is taken, or refused with a message naming it, and a file it takes
// still takes a well-formed card appended to it, whose number then finds its name.
#include "FuzzSupport.h"

#include "MSGCTR_ENG_Addrbk.h"
#include "VCardAddressBook.h"
#include "ZorHostControl.h"

#include <QDir>
#include <QFile>

namespace {

const QString kNumber = QStringLiteral("+99887766554433");
const QString kName = QStringLiteral("Zz Fuzz");

QString contactsPath()
{
    return QDir(ZorHost::root()).absoluteFilePath(QStringLiteral("fuzz-contacts.vcf"));
}

bool install(const QByteArray& bytes, QString* error)
{
    QFile file(contactsPath());
    FUZZ_CHECK(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size());
    file.close();
    error->clear();
    return msgctr::installVCardAddressBook(contactsPath(), error);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::init();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QString error;
    const bool taken = install(bytes, &error);
    FUZZ_CHECK(taken == error.isEmpty());
    if (!taken)
        FUZZ_CHECK(error.startsWith(QStringLiteral("contacts file '")));
    if (taken) {
        const QByteArray card = "\nBEGIN:VCARD\nFN:" + kName.toUtf8() + "\nTEL;TYPE=CELL:" + kNumber.toUtf8()
                                + "\nEND:VCARD\n";
        FUZZ_CHECK(install(bytes + card, &error));
        // An earlier card may hold the same number; the first card found gives the name.
        const QString name = MSGCTR_ENG_Addrbk::getNameByAddress(kNumber);
        FUZZ_CHECK(name == kName || bytes.contains(kNumber.mid(1).toLatin1()));
    }
    msgctr::removeVCardAddressBook();
    fuzz::takeReportCount();
    return 0;
}
