// Data objects that take their data from other objects. Edges are signal/slot connections, not a stored
// graph: an object finds its neighbours by emitting a signal that every connected neighbour answers by
// adding itself to a list. Marking an object stale marks everything downstream at once; reloads bring the
// sources up to date first, then the object, then its dependents.
//
// A data-in of X is an object X depends on; a data-out of X is an object that depends on X. The graph
// must be acyclic: cycles are not detected.
#pragma once

#include "MSGCTR_ENG_Object.h"
#include "msgctr_export.h"

#include <list>

class MSGCTR_EXPORT MSGCTR_ENG_ObjectDependency : public MSGCTR_ENG_Object {
    Q_OBJECT

public:
    typedef std::list<MSGCTR_ENG_ObjectDependency*> ObjList;
    typedef void (MSGCTR_ENG_ObjectDependency::*PFN_DO_STH)();
    typedef void (MSGCTR_ENG_ObjectDependency::*PFN_DO_STH_POBJ)(MSGCTR_ENG_ObjectDependency*);

    // An object whose auto-delete flag is set is deleted together with a data-in it depends on, as long
    // as it has at most one other data-in left (see the destructor).
    explicit MSGCTR_ENG_ObjectDependency(bool autoDeleteByDataIn);
    // Unlinks every data-out; each one left with at most one data-in and with its auto-delete flag set is
    // deleted. A dependent with two or more other sources survives.
    ~MSGCTR_ENG_ObjectDependency() override;

    // This object depends on `dataIn` from now on (two connections, one each way).
    void connectDataIn(MSGCTR_ENG_ObjectDependency* dataIn);
    void disconnectDataIn(MSGCTR_ENG_ObjectDependency* dataIn);

    // The neighbours in connection order; the list is cleared first. Returns its size.
    int getDataIns(ObjList& dataIns);
    int getDataOuts(ObjList& dataOuts);
    // Only the data-ins that inherit the class of that name; a null name keeps all.
    int getDataIns(ObjList& dataIns, const char* className);

    // *dataIn becomes the data-in if there is exactly one (of that class), else null; returns whether it
    // is non-null. With reportIfNotOnlyOne a mild-assertion report tells how many there were instead.
    bool getTheOnlyDataIn(MSGCTR_ENG_ObjectDependency** dataIn, bool reportIfNotOnlyOne);
    bool getTheOnlyDataIn(MSGCTR_ENG_ObjectDependency** dataIn, const char* className, bool reportIfNotOnlyOne);

    bool needReloadData() const { return m_needReloadData; }

    void setAutoDeleteByDataIn(bool on) { m_autoDeleteByDataIn = on; }
    bool autoDeleteByDataIn() const { return m_autoDeleteByDataIn; }
    void enableAutoDeleteByDataIn() { m_autoDeleteByDataIn = true; }
    void disableAutoDeleteByDataIn() { m_autoDeleteByDataIn = false; }

    // Set or clear this object's own flag, then call the matching hook.
    void setMyFlagNeedReloadData();
    void clearMyFlagNeedReloadData();

    // In all operations below, `except` names one object (usually the caller) that is skipped everywhere
    // in the recursion; null skips nothing.

    // Marks this object and, transitively, every data-out stale.
    void setFlagNeedReloadData(MSGCTR_ENG_ObjectDependency* except);
    // If stale: reload, clear the flag and mark every data-out stale (none excepted).
    void reloadMyDataPerFlagThenClearMyFlag();
    // Sources first (upward only), then this object, then the dependents, each in connection order.
    void reloadDataPerFlag(MSGCTR_ENG_ObjectDependency* except);
    // Sources first (upward only), then this object; the dependents are left alone.
    void reloadDataPerFlagWithoutMakingItsDataOutsReloadDataPerFlag(MSGCTR_ENG_ObjectDependency* except);
    // setFlagNeedReloadData, then reloadDataPerFlag.
    void reloadData(MSGCTR_ENG_ObjectDependency* except);

    void makeAllDataOuts_setFlagNeedReloadData(MSGCTR_ENG_ObjectDependency* except);
    void makeAllDataOuts_reloadDataPerFlag(MSGCTR_ENG_ObjectDependency* except);
    void makeAllDataOuts_reloadData(MSGCTR_ENG_ObjectDependency* except);
    void makeAllDataIns_reloadDataPerFlagWithoutMakingItsDataOutsReloadDataPerFlag(MSGCTR_ENG_ObjectDependency* except);

    void makeAllDataOutsDoSth(MSGCTR_ENG_ObjectDependency* except, PFN_DO_STH doSth);
    void makeAllDataInsDoSth(MSGCTR_ENG_ObjectDependency* except, PFN_DO_STH doSth);
    void makeAllDataOutsDoSthPobj(MSGCTR_ENG_ObjectDependency* except, PFN_DO_STH_POBJ doSth);
    void makeAllDataInsDoSthPobj(MSGCTR_ENG_ObjectDependency* except, PFN_DO_STH_POBJ doSth);

    // Calls doSth on every object of the list but `except`, in list order; the second form passes
    // `except` on as the argument.
    static void makeAllObjDpdDoSth(ObjList& objs, MSGCTR_ENG_ObjectDependency* except, PFN_DO_STH doSth);
    static void makeAllObjDpdDoSth(ObjList& objs, MSGCTR_ENG_ObjectDependency* except, PFN_DO_STH_POBJ doSth);

signals:
    void signalGetObjDependencyDataIn(std::list<MSGCTR_ENG_ObjectDependency*>& dataIns);
    void signalGetObjDependencyDataOut(std::list<MSGCTR_ENG_ObjectDependency*>& dataOuts);

public slots:
    // Answers a neighbour's question by adding this object to its list.
    void slotOnGetObjDependency(std::list<MSGCTR_ENG_ObjectDependency*>& objs) const;

public:
    // Hooks for derived data objects; the base does nothing.
    virtual void rightAfterSetFlagNeedReloadData();
    virtual void rightAfterClearMyFlagNeedReloadData();
    // Re-reads the object's data.
    virtual void simplyReloadMyData();

private:
    bool m_needReloadData;
    bool m_autoDeleteByDataIn;
};
