// The platform's language service: the phone's system language and its cell-broadcast language code.
//
// System languages (code, id, display string, cell-broadcast code):
//   en-us 0 English 1, en-gb 1 English 1, de-de 2 German 0, it-it 3 Italian 2, fr-fr 4 French 3,
//   es-es 5 Spanish 4, nl-nl 6 Dutch 5, sv-se 7 Swedish 6, da-dk 8 Danish 7, pt-pt 9 Portuguese 8,
//   fi-fi 10 Finnish 9, nb-no 11 Norwegian 10, el-gr 12 Greek 11, tr-tr 13 Turkish 12,
//   hu-hu 14 Hungarian 13, pl-pl 15 Polish 14, cs-cz 16 Czech 32, pt-br 17 Portuguese 8,
//   ru-ru 18 Russian 15, zh-cn 19 Chinese 15, zh-tw 20 Chinese 15.
// Code 15 is the cell-broadcast "language unspecified": these languages have no code of their own.
//
// The factory language is en-us. On the host the choice (ZorHost::setSystemLanguage) is kept in the
// key file state/language/language.conf under the host root, line "CODE=<code>" of group [SYSTEM].
//
// Faults: "UTIL_Language::getSystemLanguageCode" and "::getSystemLanguageString" answer an empty text;
// "::getSystemLanguageId" and "::getLanguageIndexByLanId" answer the fault's result.
#pragma once

#include <QString>

class UTIL_Language {
public:
    static QString getSystemLanguageCode();
    static int getSystemLanguageId();
    // The language's English name ("English", "German").
    static QString getSystemLanguageString();
    // The cell-broadcast language code of a system language id; 15 for an id that has none or is unknown.
    static int getLanguageIndexByLanId(int id);
};
