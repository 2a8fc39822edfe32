// The one path every telephony wrapper takes: trace before the call, call, trace the result, map it to an
// MSGCTR_ERRCODE and report a failure. A typical wrapper is a single statement:
//
//   return MSGCTR_TAPI_CALL(TAPI_CB_SetStatus(cbState), MSGCTR_VAL(cbState));
//
// and one that needs other texts spells them out with msgctrTapiCall() (see MSGCTR_ENG_TAPI.cpp).
#pragma once

#include "foundation/MsgctrReport.h"

#include "MSGCTR_ERRCODE.h"
#include "msgctr_export.h"

// Where a wrapper's report lines say they come from.
struct MsgctrTapiSite {
    const char* file;
    int line;
    const char* function;
};

#define MSGCTR_TAPI_SITE (MsgctrTapiSite{__FILE__, __LINE__, __func__})

// How a failed call is reported.
struct MsgctrTapiFailureReport {
    // The expression the assertion report names.
    const char* expression = "false";
    // Most failures are reported only while MSGCTR_ENG_ErrorCodeDef_chkErrorCodeEnabled() says so; the
    // service-centre and e-mail gateway setters report theirs regardless.
    bool unconditional = false;
    // Whether "tapiResult = " closes the report.
    bool withTapiResult = true;
};

// A borrowed callable, valid for the full expression that passes it: no copy, no allocation.
template <typename Signature>
class MsgctrTapiRef;

template <typename R, typename... Args>
class MsgctrTapiRef<R(Args...)> {
public:
    MsgctrTapiRef() = default;
    template <typename F>
    MsgctrTapiRef(const F& f)
        : m_object(&f)
        , m_invoke([](const void* object, Args... args) -> R {
            return (*static_cast<const F*>(object))(args...);
        })
    {
    }
    explicit operator bool() const { return m_invoke != nullptr; }
    R operator()(Args... args) const { return m_invoke(m_object, args...); }

private:
    const void* m_object = nullptr;
    R (*m_invoke)(const void*, Args...) = nullptr;
};

// Streams labelled values into a report line; an empty one streams nothing.
using MsgctrTapiValues = MsgctrTapiRef<void(MsgctrReport&)>;
// The platform call itself; returns the TAPI result.
using MsgctrTapiFunction = MsgctrTapiRef<int()>;

// Labelled values as a MsgctrTapiValues, e.g. MSGCTR_TAPI_VALUES(MSGCTR_VAL(nChannelNumber)).
#define MSGCTR_TAPI_VALUES(...) ([&](MsgctrReport& report) { report << __VA_ARGS__; })

// Traces `before` (a bare comment when it is empty), makes the call, traces `after` and "tapiResult = ",
// maps the result and, on failure, reports "msgctrErrcode = ", `failed` and "tapiResult = ". Exported for
// the tests only; it is not part of the installed interface.
MSGCTR_EXPORT MSGCTR_ERRCODE msgctrTapiCall(const MsgctrTapiSite& site, MsgctrTapiFunction call,
                                            MsgctrTapiValues before, MsgctrTapiValues after,
                                            MsgctrTapiValues failed,
                                            const MsgctrTapiFailureReport& failure = MsgctrTapiFailureReport());

// The common wrapper: its arguments traced before and after the call and shown in a failure report.
#define MSGCTR_TAPI_CALL(call, ...)                                                               \
    msgctrTapiCall(MSGCTR_TAPI_SITE, [&]() -> int { return (call); }, MSGCTR_TAPI_VALUES(__VA_ARGS__), \
                   MSGCTR_TAPI_VALUES(__VA_ARGS__), MSGCTR_TAPI_VALUES(__VA_ARGS__))
