// Typed reads of the leaves of one interior node (leaf name to value). A missing leaf is not an error: its
// getter returns 0 and leaves the reset value, so records with fewer leaves read as their defaults.
#pragma once

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

#include "DMMap.h"
#include "DMString.h"
#include "DmtData.h"

#include <QByteArray>
#include <QString>

class MSGCTR_EXPORT MSGCTR_ValuesMap {
public:
    // Keeps a reference: the map must outlive this object. It is never copied or changed.
    explicit MSGCTR_ValuesMap(const DMMap<DMString, DmtData>& map);

    bool containsFldName(const DMString& name) const;

    MSGCTR_ERRCODE getString(QString* out, const DMString& name) const;
    MSGCTR_ERRCODE getBool(bool* out, const DMString& name) const;
    MSGCTR_ERRCODE getInt(int* out, const DMString& name) const;
    MSGCTR_ERRCODE getUint(unsigned int* out, const DMString& name) const;
    MSGCTR_ERRCODE getBinary(QByteArray* out, const DMString& name) const;

private:
    // The value named, or null when the map lacks it.
    const DmtData* value(const DMString& name) const;

    const DMMap<DMString, DmtData>& m_map;
};
