#include "Catalogue.h"

#include "UTIL_Language.h"

#include <QCoreApplication>
#include <QTranslator>

namespace msgctr {

void loadSystemLanguageCatalogue()
{
    // Catalogues are per language, not per country: "de-de" loads zormsgctrutil_de.
    const QString language = UTIL_Language::getSystemLanguageCode().section(QLatin1Char('-'), 0, 0);
    if (language.isEmpty())
        return;
    const QString name = QStringLiteral("zormsgctrutil_") + language;
    // Installed next to the binaries, else (in the build tree) where the build put them.
    const QStringList dirs{QCoreApplication::applicationDirPath() + QStringLiteral("/../share/zormsgctrutil/translations"),
                           QStringLiteral(ZOR_BUILD_TRANSLATIONS_DIR)};
    auto* translator = new QTranslator(QCoreApplication::instance());
    for (const QString& dir : dirs) {
        if (translator->load(name, dir)) {
            QCoreApplication::installTranslator(translator);
            return;
        }
    }
    delete translator;
}

} // namespace msgctr
