// An address book for msgctr, loaded from a vCard file (FN, TEL and EMAIL of each card) and offered to the
// library through its address-book callbacks.
#pragma once

#include <QString>

namespace msgctr {

// Loads the cards and registers the callbacks; false with a message when the file cannot be used.
bool installVCardAddressBook(const QString& path, QString* error);
// Unregisters the callbacks and drops the cards.
void removeVCardAddressBook();

} // namespace msgctr
