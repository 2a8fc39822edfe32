// An event the telephony side delivers: its type and a copy of its raw record (one of the TAPI_*_S records
// of TAPI.h, by type).
#pragma once

#include <vector>

// Event types and the record each carries.
enum _TAPI_EVENT_TYPE_E {
    TAPI_EVENT_SMS_RECV_NEW_SM = 1,   // TAPI_SMS_NOTIFY_RECV_NEW_SM_S
    TAPI_EVENT_SMS_SEND_RESP = 2,     // TAPI_SMS_SEND_RESP_S
    TAPI_EVENT_SMS_STATUS_REPORT = 3, // TAPI_SMS_STATUS_REPORT_S
    TAPI_EVENT_SMS_RECV_VM_SM = 4,    // TAPI_SMS_NOTIFY_RECV_VM_SM_S
    TAPI_EVENT_CB_RECV_MSG = 5,       // TAPI_CB_APP_MSG_S
    TAPI_EVENT_SMS_SIM_STORE_SM = 6   // TAPI_SMS_SIM_STORE_SM_S
};

class UTIL_TAPI_Event {
public:
    UTIL_TAPI_Event();
    // Copies length bytes of data; a null data or a negative length gives an event without raw data.
    UTIL_TAPI_Event(int type, const void* data, int length);
    virtual ~UTIL_TAPI_Event();
    UTIL_TAPI_Event(const UTIL_TAPI_Event&) = default;
    UTIL_TAPI_Event& operator=(const UTIL_TAPI_Event&) = default;

    int GetType() const;
    // Null when the event has no raw data; valid while the event lives and is not assigned to.
    const unsigned char* GetRawData() const;
    int GetRawDataLength() const;

private:
    int m_type;
    std::vector<unsigned char> m_raw;
};
