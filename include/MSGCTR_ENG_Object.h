// The common base of engine objects: a QObject with a process-unique id, a self-check and a self-dump.
#pragma once

#include "msgctr_export.h"

#include <QObject>

class MSGCTR_ENG_DumpContext;

class MSGCTR_EXPORT MSGCTR_ENG_Object : public QObject {
    Q_OBJECT

public:
    MSGCTR_ENG_Object();
    ~MSGCTR_ENG_Object() override;

    // The id handed out at construction; never 0, kept for the object's whole life.
    quint32 objectID() const { return m_objectID; }

    // Advances the class-wide counter and returns it; a wrap to 0 is skipped, so 0 is never handed out.
    // Ids are unique only while objects are created on one thread: the counter is not guarded.
    static quint32 createNewObjectID();

    // The object's self-check; the base answers true.
    virtual bool isValidByChk() const;
    // Writes the object into a report; the base writes nothing.
    virtual void dumpObj(MSGCTR_ENG_DumpContext& context) const;

protected:
    // For tests only: puts the counter where a wrap can be reached without four billion objects.
    static void setObjectIDCountForTesting(quint32 count);

private:
    static quint32 sObjectIDCount;
    quint32 m_objectID;
};
