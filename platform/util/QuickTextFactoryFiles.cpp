// The factory quick-text resources of the phone: "/usr/data_resource/quicktext/<language code>.qkt", one
// UTF-8 phrase per line. A factory reset empties the device tree and puts them back.
#include "ZorHostCore.h"

#include <QFile>

namespace {

struct QuickTextFile {
    const char* languageCode;
    const char* text;
};

const QuickTextFile kFactoryFiles[] = {
    {"en-us",
     "I'm on my way.\n"
     "I'll be late.\n"
     "Call me when you can.\n"
     "I'm in a meeting.\n"
     "See you soon.\n"
     "Thank you!\n"
     "Where are you?\n"
     "I'll call you back.\n"
     "Happy birthday!\n"
     "Running ten minutes late.\n"
     "Can't talk now, text me.\n"
     "Good night.\n"},
    {"de-de",
     "Ich bin unterwegs.\n"
     "Ich komme später.\n"
     "Ruf mich an, wenn du kannst.\n"
     "Ich bin in einer Besprechung.\n"
     "Bis bald.\n"
     "Danke schön!\n"
     "Wo bist du?\n"
     "Ich rufe zurück.\n"
     "Alles Gute zum Geburtstag!\n"
     "Ich verspäte mich um zehn Minuten.\n"
     "Kann gerade nicht sprechen, schreib mir.\n"
     "Gute Nacht.\n"},
    {"fr-fr",
     "Je suis en route.\n"
     "Je serai en retard.\n"
     "Appelle-moi dès que tu peux.\n"
     "Je suis en réunion.\n"
     "À bientôt.\n"
     "Merci beaucoup !\n"
     "Où es-tu ?\n"
     "Je te rappelle.\n"
     "Joyeux anniversaire !\n"
     "J'ai dix minutes de retard.\n"
     "Je ne peux pas parler, écris-moi.\n"
     "Bonne nuit.\n"},
};

void installFactoryFiles()
{
    for (const QuickTextFile& f : kFactoryFiles) {
        QFile file(ZorHostCore::devicePath(QStringLiteral("/usr/data_resource/quicktext/%1.qkt")
                                               .arg(QLatin1String(f.languageCode))));
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            file.write(f.text);
    }
}

const bool resetRegistered = (ZorHostCore::registerReset("quicktext", installFactoryFiles), true);

} // namespace
