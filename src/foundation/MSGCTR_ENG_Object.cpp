#include "MSGCTR_ENG_Object.h"

#include "MSGCTR_ENG_DumpContext.h"

quint32 MSGCTR_ENG_Object::sObjectIDCount = 0;

MSGCTR_ENG_Object::MSGCTR_ENG_Object()
    : QObject(nullptr), m_objectID(createNewObjectID())
{
}

MSGCTR_ENG_Object::~MSGCTR_ENG_Object() = default;

quint32 MSGCTR_ENG_Object::createNewObjectID()
{
    ++sObjectIDCount;
    if (sObjectIDCount == 0)
        ++sObjectIDCount;
    return sObjectIDCount;
}

bool MSGCTR_ENG_Object::isValidByChk() const
{
    return true;
}

void MSGCTR_ENG_Object::dumpObj(MSGCTR_ENG_DumpContext&) const
{
}

void MSGCTR_ENG_Object::setObjectIDCountForTesting(quint32 count)
{
    sObjectIDCount = count;
}

MSGCTR_ENG_DumpContext& MSGCTR_ENG_DumpContext::operator<<(const MSGCTR_ENG_Object& object)
{
    object.dumpObj(*this);
    return *this;
}
