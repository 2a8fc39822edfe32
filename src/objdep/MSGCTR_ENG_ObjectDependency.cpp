#include "MSGCTR_ENG_ObjectDependency.h"

#include "foundation/MsgctrReport.h"

namespace {

// The connection strings of an edge, as SIGNAL() and SLOT() spell them.
const char kSignalDataIn[] = "2signalGetObjDependencyDataIn(std::list<MSGCTR_ENG_ObjectDependency*>&)";
const char kSignalDataOut[] = "2signalGetObjDependencyDataOut(std::list<MSGCTR_ENG_ObjectDependency*>&)";
const char kSlotGetObjDependency[] = "1slotOnGetObjDependency(std::list<MSGCTR_ENG_ObjectDependency*>&)";

} // namespace

MSGCTR_ENG_ObjectDependency::MSGCTR_ENG_ObjectDependency(bool autoDeleteByDataIn)
    : m_needReloadData(false), m_autoDeleteByDataIn(autoDeleteByDataIn)
{
    clearMyFlagNeedReloadData();
}

MSGCTR_ENG_ObjectDependency::~MSGCTR_ENG_ObjectDependency()
{
    int previousCount = -1;
    for (;;) {
        ObjList dataOuts;
        const int count = getDataOuts(dataOuts);
        if (count == 0)
            break;
        // A data-out that cannot be unlinked would keep us here for ever.
        if (previousCount != -1 && count >= previousCount)
            break;
        previousCount = count;

        MSGCTR_ENG_ObjectDependency* dataOut = dataOuts.front();
        dataOut->disconnectDataIn(this);
        ObjList itsDataIns;
        if (dataOut->getDataIns(itsDataIns) <= 1 && dataOut->autoDeleteByDataIn())
            delete dataOut;
    }
}

void MSGCTR_ENG_ObjectDependency::connectDataIn(MSGCTR_ENG_ObjectDependency* dataIn)
{
    MSGCTR_CHECK(dataIn) << MSGCTR_VAL(objectID());
    if (!dataIn)
        return;
    connect(this, kSignalDataIn, dataIn, kSlotGetObjDependency);
    connect(dataIn, kSignalDataOut, this, kSlotGetObjDependency);
}

void MSGCTR_ENG_ObjectDependency::disconnectDataIn(MSGCTR_ENG_ObjectDependency* dataIn)
{
    MSGCTR_CHECK(dataIn) << MSGCTR_VAL(objectID());
    if (!dataIn)
        return;
    disconnect(this, kSignalDataIn, dataIn, kSlotGetObjDependency);
    disconnect(dataIn, kSignalDataOut, this, kSlotGetObjDependency);
}

int MSGCTR_ENG_ObjectDependency::getDataIns(ObjList& dataIns)
{
    dataIns.clear();
    emit signalGetObjDependencyDataIn(dataIns);
    return static_cast<int>(dataIns.size());
}

int MSGCTR_ENG_ObjectDependency::getDataOuts(ObjList& dataOuts)
{
    dataOuts.clear();
    emit signalGetObjDependencyDataOut(dataOuts);
    return static_cast<int>(dataOuts.size());
}

int MSGCTR_ENG_ObjectDependency::getDataIns(ObjList& dataIns, const char* className)
{
    getDataIns(dataIns);
    if (className) {
        dataIns.remove_if([className](const MSGCTR_ENG_ObjectDependency* obj) {
            return !obj || !obj->inherits(className);
        });
    }
    return static_cast<int>(dataIns.size());
}

bool MSGCTR_ENG_ObjectDependency::getTheOnlyDataIn(MSGCTR_ENG_ObjectDependency** dataIn, bool reportIfNotOnlyOne)
{
    return getTheOnlyDataIn(dataIn, nullptr, reportIfNotOnlyOne);
}

bool MSGCTR_ENG_ObjectDependency::getTheOnlyDataIn(MSGCTR_ENG_ObjectDependency** dataIn, const char* className,
                                                   bool reportIfNotOnlyOne)
{
    MSGCTR_CHECK(dataIn) << MSGCTR_VAL(objectID());
    if (!dataIn)
        return false;
    *dataIn = nullptr;
    ObjList dataIns;
    const int count = getDataIns(dataIns, className);
    if (count == 1)
        *dataIn = dataIns.front();
    else if (reportIfNotOnlyOne)
        MSGCTR_MILD_ASSERT_FAIL_REPORT("count == 1") << MSGCTR_VAL(count) << MSGCTR_VAL(className);
    return *dataIn != nullptr;
}

void MSGCTR_ENG_ObjectDependency::setMyFlagNeedReloadData()
{
    m_needReloadData = true;
    rightAfterSetFlagNeedReloadData();
}

void MSGCTR_ENG_ObjectDependency::clearMyFlagNeedReloadData()
{
    m_needReloadData = false;
    rightAfterClearMyFlagNeedReloadData();
}

void MSGCTR_ENG_ObjectDependency::setFlagNeedReloadData(MSGCTR_ENG_ObjectDependency* except)
{
    setMyFlagNeedReloadData();
    makeAllDataOuts_setFlagNeedReloadData(except);
}

void MSGCTR_ENG_ObjectDependency::reloadMyDataPerFlagThenClearMyFlag()
{
    if (!m_needReloadData)
        return;
    simplyReloadMyData();
    clearMyFlagNeedReloadData();
    makeAllDataOuts_setFlagNeedReloadData(nullptr);
}

void MSGCTR_ENG_ObjectDependency::reloadDataPerFlag(MSGCTR_ENG_ObjectDependency* except)
{
    makeAllDataIns_reloadDataPerFlagWithoutMakingItsDataOutsReloadDataPerFlag(except);
    reloadMyDataPerFlagThenClearMyFlag();
    makeAllDataOuts_reloadDataPerFlag(except);
}

void MSGCTR_ENG_ObjectDependency::reloadDataPerFlagWithoutMakingItsDataOutsReloadDataPerFlag(
    MSGCTR_ENG_ObjectDependency* except)
{
    makeAllDataIns_reloadDataPerFlagWithoutMakingItsDataOutsReloadDataPerFlag(except);
    reloadMyDataPerFlagThenClearMyFlag();
}

void MSGCTR_ENG_ObjectDependency::reloadData(MSGCTR_ENG_ObjectDependency* except)
{
    setFlagNeedReloadData(except);
    reloadDataPerFlag(except);
}

void MSGCTR_ENG_ObjectDependency::makeAllDataOuts_setFlagNeedReloadData(MSGCTR_ENG_ObjectDependency* except)
{
    makeAllDataOutsDoSthPobj(except, &MSGCTR_ENG_ObjectDependency::setFlagNeedReloadData);
}

void MSGCTR_ENG_ObjectDependency::makeAllDataOuts_reloadDataPerFlag(MSGCTR_ENG_ObjectDependency* except)
{
    makeAllDataOutsDoSthPobj(except, &MSGCTR_ENG_ObjectDependency::reloadDataPerFlag);
}

void MSGCTR_ENG_ObjectDependency::makeAllDataOuts_reloadData(MSGCTR_ENG_ObjectDependency* except)
{
    makeAllDataOutsDoSthPobj(except, &MSGCTR_ENG_ObjectDependency::reloadData);
}

void MSGCTR_ENG_ObjectDependency::makeAllDataIns_reloadDataPerFlagWithoutMakingItsDataOutsReloadDataPerFlag(
    MSGCTR_ENG_ObjectDependency* except)
{
    makeAllDataInsDoSthPobj(except,
                            &MSGCTR_ENG_ObjectDependency::reloadDataPerFlagWithoutMakingItsDataOutsReloadDataPerFlag);
}

void MSGCTR_ENG_ObjectDependency::makeAllDataOutsDoSth(MSGCTR_ENG_ObjectDependency* except, PFN_DO_STH doSth)
{
    ObjList dataOuts;
    getDataOuts(dataOuts);
    makeAllObjDpdDoSth(dataOuts, except, doSth);
}

void MSGCTR_ENG_ObjectDependency::makeAllDataInsDoSth(MSGCTR_ENG_ObjectDependency* except, PFN_DO_STH doSth)
{
    ObjList dataIns;
    getDataIns(dataIns);
    makeAllObjDpdDoSth(dataIns, except, doSth);
}

void MSGCTR_ENG_ObjectDependency::makeAllDataOutsDoSthPobj(MSGCTR_ENG_ObjectDependency* except,
                                                           PFN_DO_STH_POBJ doSth)
{
    ObjList dataOuts;
    getDataOuts(dataOuts);
    makeAllObjDpdDoSth(dataOuts, except, doSth);
}

void MSGCTR_ENG_ObjectDependency::makeAllDataInsDoSthPobj(MSGCTR_ENG_ObjectDependency* except,
                                                          PFN_DO_STH_POBJ doSth)
{
    ObjList dataIns;
    getDataIns(dataIns);
    makeAllObjDpdDoSth(dataIns, except, doSth);
}

void MSGCTR_ENG_ObjectDependency::makeAllObjDpdDoSth(ObjList& objs, MSGCTR_ENG_ObjectDependency* except,
                                                     PFN_DO_STH doSth)
{
    MSGCTR_CHECK(doSth) << MSGCTR_VAL(static_cast<int>(objs.size()));
    if (!doSth)
        return;
    for (MSGCTR_ENG_ObjectDependency* obj : objs) {
        if (obj && obj != except)
            (obj->*doSth)();
    }
}

void MSGCTR_ENG_ObjectDependency::makeAllObjDpdDoSth(ObjList& objs, MSGCTR_ENG_ObjectDependency* except,
                                                     PFN_DO_STH_POBJ doSth)
{
    MSGCTR_CHECK(doSth) << MSGCTR_VAL(static_cast<int>(objs.size()));
    if (!doSth)
        return;
    for (MSGCTR_ENG_ObjectDependency* obj : objs) {
        if (obj && obj != except)
            (obj->*doSth)(except);
    }
}

void MSGCTR_ENG_ObjectDependency::slotOnGetObjDependency(std::list<MSGCTR_ENG_ObjectDependency*>& objs) const
{
    objs.push_back(const_cast<MSGCTR_ENG_ObjectDependency*>(this));
}

void MSGCTR_ENG_ObjectDependency::rightAfterSetFlagNeedReloadData()
{
}

void MSGCTR_ENG_ObjectDependency::rightAfterClearMyFlagNeedReloadData()
{
}

void MSGCTR_ENG_ObjectDependency::simplyReloadMyData()
{
}
