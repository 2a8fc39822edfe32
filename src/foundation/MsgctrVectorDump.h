// Report text of a vector: "{ Total (N) item(s),v1, v2,  }", each element rendered by the dump
// context as a single value would be. Wrapped in a type of its own so that report streams find it.
#pragma once

#include "MSGCTR_ENG_DumpContext.h"

#include <vector>

template <typename T>
struct MsgctrVectorDump {
    const std::vector<T>& items;
};

template <typename T>
MsgctrVectorDump<T> msgctrVectorDump(const std::vector<T>& items)
{
    return MsgctrVectorDump<T>{items};
}

template <typename T>
MSGCTR_ENG_DumpContext& operator<<(MSGCTR_ENG_DumpContext& context, const MsgctrVectorDump<T>& dump)
{
    context << MEDCQqqStr(QStringLiteral("{ Total (%1) item(s),").arg(qsizetype(dump.items.size())));
    for (const T& item : dump.items)
        context << item << MEDCStr(", ");
    return context << MEDCStr(" }");
}
