/*
 * The phone's telephony API (libzortapi.so), simulated on the host: a modem with its SIM card.
 *
 * Every function has C linkage. Functions returning a result code give TAPI_RESULT_SUCC (0) on success and a
 * _TAPI_RESULT_E value otherwise; a failing call changes nothing and leaves outputs as documented per call.
 * Every call is counted and honours injected faults (ZorHost::injectFault with the function's name): a faulted
 * call changes nothing and returns the injected value. For the few functions whose return value is not a result
 * code (TAPI_FTRDB_GetAvailability, TAPI_SMS_ExpirePeriodToUINT8, TAPI_UTIL_ConvertUcs2StringToGsmString) the
 * injected value is what the function returns.
 *
 * Factory state (what ZorHost::resetAll() restores, and what a missing or damaged state file means):
 *   SIM card status                3 (SIM ready)
 *   SMS service centre             "+12065550100"
 *   e-mail gateway                 "6245"
 *   SIM services (FTRDB)           2348 (mailbox dialling numbers) and 2349 (message-waiting status) available,
 *                                  every other id not available
 *   USIM files and access rules    TAPI_USIM_EF_MBDN, _MBI, _MWIS, _SMSP, _CBMI and _LI, each with rule 4
 *   GSM phase 2+ mailboxes 0..3    empty number and name, waiting count 0; entries modifiable
 *   CPHS voice mailboxes 1, 2      empty number and name; message-waiting flags of lines 0 and 1 clear
 *   cell broadcast                 state 0, no channel, 5 language slots: 1 (English) and four unused (255)
 *   SMS transport mode             1 (SMS over GPRS off); reading it is supported
 *   storage notification           none yet (2)
 *
 * Calls that touch the SIM (service centre, e-mail gateway, storage notifications, mailboxes, CPHS, channel and
 * language lists, USIM file information) need a usable card: status 3 or 4, else they fail with
 * TAPI_RESULT_SIM_NOT_READY. TAPI_FTRDB_GetAvailability answers 0 for every service without a usable card.
 */
#ifndef ZOR_TAPI_H
#define ZOR_TAPI_H

#ifdef __cplusplus
extern "C" {
#endif

/* ---- results ------------------------------------------------------------------------------------------- */

typedef enum _TAPI_RESULT_E {
    TAPI_RESULT_SUCC = 0,
    TAPI_RESULT_IO_ERROR = 5,          /* the modem's storage could not be read or written (state file) */
    TAPI_RESULT_NO_MEMORY = 12,        /* a list could not be allocated */
    TAPI_RESULT_ACCESS_DENIED = 13,    /* the SIM refuses the update (GSM phase 2+ mailbox not modifiable) */
    TAPI_RESULT_INVALID_PARAM = 22,    /* null pointer, value out of range, channel 65535, too long a text */
    TAPI_RESULT_LIST_FULL = 28,        /* no room for another cell-broadcast channel */
    TAPI_RESULT_NOT_SUPPORTED = 305,   /* the modem or SIM lacks the feature (transport mode, SIM service off) */
    TAPI_RESULT_SIM_NOT_READY = 509,   /* no usable SIM card: status other than 3 or 4 */
    TAPI_RESULT_NOT_FOUND = 819        /* no such channel to delete, no such USIM file */
} _TAPI_RESULT_E;

/* ---- shared buffers ------------------------------------------------------------------------------------ */

/* A telephone number: 8-bit characters, NUL-terminated, at most 41 characters. */
#define TAPI_PHONE_NUMBER_LEN 42
typedef char TAPI_PHONE_NUMBER_A[TAPI_PHONE_NUMBER_LEN];

/* A phone-book name: 51 UCS-2 code units (102 bytes), NUL-terminated when shorter than 51 units. */
#define TAPI_PHONEBOOK_NAME_UNITS 51
typedef unsigned short TAPI_PHONEBOOK_NAME_A[TAPI_PHONEBOOK_NAME_UNITS];

/* ---- SIM card -------------------------------------------------------------------------------------------- */

/* The two outer values make the type hold every int, so that any status is a valid value of it. */
typedef enum _TAPI_SIM_STATUS_E {
    TAPI_SIM_STATUS_UNKNOWN = -1,
    TAPI_SIM_STATUS_NO_CARD = 0,
    TAPI_SIM_STATUS_PIN_REQUIRED = 1,
    TAPI_SIM_STATUS_PUK_REQUIRED = 2,
    TAPI_SIM_STATUS_SIM_READY = 3,
    TAPI_SIM_STATUS_USIM_READY = 4,
    TAPI_SIM_STATUS_BLOCKED = 5,
    TAPI_SIM_STATUS_INITIALIZING = 6,
    TAPI_SIM_STATUS_LAST = 0x7FFFFFFF
} _TAPI_SIM_STATUS_E;

/* Any value the control interface set is passed through, so unknown statuses reach the caller too. */
int TAPI_ACCE_GetSimCardStatus(_TAPI_SIM_STATUS_E* status);

/* SIM services by the platform's feature id; non-zero when available. */
#define TAPI_FTRDB_SIM_SERVICE_MBDN 2348 /* mailbox dialling numbers */
#define TAPI_FTRDB_SIM_SERVICE_MWIS 2349 /* message-waiting-indication status */
int TAPI_FTRDB_GetAvailability(int featureId);

/* USIM elementary files known to the simulated card, by the platform's 8-bit file id. */
typedef enum _TAPI_USIM_EF_E {
    TAPI_USIM_EF_MBDN = 1,
    TAPI_USIM_EF_MBI = 2,
    TAPI_USIM_EF_MWIS = 3,
    TAPI_USIM_EF_SMSP = 4,
    TAPI_USIM_EF_CBMI = 5,
    TAPI_USIM_EF_LI = 6
} _TAPI_USIM_EF_E;

typedef struct _TAPI_SIM_USIM_FILE_INFO_S {
    unsigned char fileId;
    unsigned char accessRule;     /* record number of the access rule in EF ARR; 5, 6 and 7 forbid updates */
    unsigned char fileStructure;  /* 1 transparent, 2 linear fixed */
    unsigned char recordLength;   /* bytes per record, 0 for a transparent file */
    unsigned short fileSize;      /* bytes */
} TAPI_SIM_USIM_FILE_INFO_S;

/* recordNumber and pathLength are accepted for compatibility and ignored (callers pass 0).
 * TAPI_RESULT_NOT_FOUND for a file the card does not have; info is written only on success. */
int TAPI_SIM_GetUSIMFileInfo(unsigned char fileId, unsigned char recordNumber, unsigned short pathLength,
                             TAPI_SIM_USIM_FILE_INFO_S* info);

/* ---- SMS ------------------------------------------------------------------------------------------------- */

/* Relative validity period: unit 0 = 5 minutes, 1 = 30 minutes, 2 = day, 3 = week. */
#define TAPI_SMS_EXPIRE_UNIT_5_MINUTES 0u
#define TAPI_SMS_EXPIRE_UNIT_30_MINUTES 1u
#define TAPI_SMS_EXPIRE_UNIT_DAY 2u
#define TAPI_SMS_EXPIRE_UNIT_WEEK 3u
typedef struct _TAPI_SMS_EXPIRE_PERIOD_DATA_S {
    unsigned int unit;
    unsigned char value;
} _TAPI_SMS_EXPIRE_PERIOD_DATA_S;
typedef _TAPI_SMS_EXPIRE_PERIOD_DATA_S TAPI_SMS_EXPIRE_PERIOD_DATA_S;

/* The relative TP-VP octet: value v of unit 0 (1..144) gives v-1, of unit 1 (25..48) v+119, of unit 2 (2..30)
 * v+166, of unit 3 (5..63) v+192. Returns 1 and writes *octet for such a pair; returns 0 and leaves *octet
 * alone for any other pair or a null pointer. */
int TAPI_SMS_ExpirePeriodToUINT8(const _TAPI_SMS_EXPIRE_PERIOD_DATA_S* period, unsigned char* octet);

/* Service-centre address: at most 41 characters (TAPI_RESULT_INVALID_PARAM beyond); empty clears it.
 * The getter fills a buffer of at least TAPI_PHONE_NUMBER_LEN bytes. */
int TAPI_SMS_SetServiceCenter(const char* address);
int TAPI_SMS_GetServiceCenter(char* address);

/* The SMS e-mail gateway number, same rules as the service centre. */
int TAPI_SMS_SetEmailGateway(const char* number);
int TAPI_SMS_GetEmailGateway(char* number);

/* The phone's message memory is full / free again (remembered; see ZorHost::tapiLastStorageNotification). */
int TAPI_SMS_NotifyMeStorageFull(void);
int TAPI_SMS_NotifyMeStorageAvail(void);

/* Transport mode: 1 = SMS over GPRS off, 2 = on. Both fail with TAPI_RESULT_NOT_SUPPORTED on a modem that
 * cannot report it; other modes are TAPI_RESULT_INVALID_PARAM. */
#define TAPI_SMS_TRANSPORT_GPRS_OFF 1
#define TAPI_SMS_TRANSPORT_GPRS_ON 2
int TAPI_SMS_GetSmsTransportMode(unsigned char* mode);
int TAPI_SMS_SetSmsTransportMode(unsigned char mode);

/* Segment count. The request holds a count of UTF-16 units (at most 3200) and the text in native byte order;
 * the count is authoritative, the terminating NUL is not needed. The result record is 16 bytes:
 *   byte 0      encoding: TAPI_SMS_ENCODE_GSM7BIT (0) or TAPI_SMS_ENCODE_UCS2 (2)
 *   byte 1      0
 *   bytes 2-3   units a segment of this text holds: 160 or 153 septets, 70 or 67 UTF-16 units (native order)
 *   byte 4      number of segments (1 for an empty text)
 *   byte 5      0
 *   bytes 6-7   units the whole text takes: septets (an extension character counts two) or UTF-16 units
 *   bytes 8-9   units still free in the last segment
 *   bytes 10-11 units used in the last segment
 *   bytes 12-15 0
 * GSM 7-bit is chosen when every unit is in the default alphabet or its extension table, else UCS-2. Neither an
 * escape pair nor a surrogate pair is split over two segments. TAPI_RESULT_INVALID_PARAM for a null pointer or
 * a count over 3200; the result record is written only on success. */
#define TAPI_SMS_CACULATE_MAX_UNITS 3200
#define TAPI_SMS_ENCODE_GSM7BIT 0
#define TAPI_SMS_ENCODE_8BIT 1
#define TAPI_SMS_ENCODE_UCS2 2
typedef struct _TAPI_SMS_CACULATE_SM_REQ_S {
    unsigned short length;
    unsigned short text[TAPI_SMS_CACULATE_MAX_UNITS + 1];
} TAPI_SMS_CACULATE_SM_REQ_S;
typedef struct _TAPI_SMS_CACULATE_SM_RESULT_S {
    unsigned char encodeType;
    unsigned char reserved1;
    unsigned short unitsPerSegment;
    unsigned char segmentCount;
    unsigned char reserved5;
    unsigned short unitsUsed;
    unsigned short unitsLeftInLastSegment;
    unsigned short unitsInLastSegment;
    unsigned char reserved12[4];
} TAPI_SMS_CACULATE_SM_RESULT_S;
int TAPI_SMS_CaculateSm(const TAPI_SMS_CACULATE_SM_REQ_S* request, TAPI_SMS_CACULATE_SM_RESULT_S* result);

/* Records of the SMS events the modem delivers (as the raw data of a UTIL_TAPI_Event). */
typedef struct _TAPI_SMS_TIME_STAMP_S {
    unsigned short year;
    unsigned char month;
    unsigned char day;
    unsigned char hour;
    unsigned char minute;
    unsigned char second;
    signed char timeZone; /* quarters of an hour east of UTC */
} TAPI_SMS_TIME_STAMP_S;

#define TAPI_SMS_ASCII_BODY_LEN 161
#define TAPI_SMS_DATA_BODY_LEN 140
#define TAPI_SMS_UCS2_BODY_UNITS 71
typedef struct _TAPI_SMS_SM_BASE_S {
    unsigned char protocol;          /* TP-PID */
    unsigned char isReplyPathValid;
    TAPI_PHONE_NUMBER_A scAddress;
    TAPI_PHONE_NUMBER_A peerAddress;
    unsigned char encodeType;        /* TAPI_SMS_ENCODE_* */
    struct {
        unsigned short msgLength;
        char msgBody[TAPI_SMS_ASCII_BODY_LEN];
    } asciiContent;
    struct {
        unsigned short msgLength;
        unsigned char msgBody[TAPI_SMS_DATA_BODY_LEN];
    } dataContent;
    struct {
        unsigned short msgLength;
        unsigned short msgBody[TAPI_SMS_UCS2_BODY_UNITS];
    } ucs2Content;
} TAPI_SMS_SM_BASE_S;

typedef struct _TAPI_SMS_MO_SM_S {
    TAPI_SMS_SM_BASE_S smBase;
    _TAPI_SMS_EXPIRE_PERIOD_DATA_S expirePeriod;
    unsigned char isNeedAck;
    unsigned char msgRefNumber;
} TAPI_SMS_MO_SM_S;

typedef struct _TAPI_SMS_MT_SM_S {
    TAPI_SMS_SM_BASE_S smBase;
    TAPI_SMS_TIME_STAMP_S timeStamp;
} TAPI_SMS_MT_SM_S;

/* Status of a message stored on the SIM; read and unread ones hold an MT body, sent and unsent an MO body. */
#define TAPI_SMS_SIM_STATUS_READ 1
#define TAPI_SMS_SIM_STATUS_UNREAD 3
#define TAPI_SMS_SIM_STATUS_SENT 5
#define TAPI_SMS_SIM_STATUS_UNSENT 7
typedef struct _TAPI_SMS_SIM_STORE_SM_S {
    unsigned char smStatus;
    union {
        TAPI_SMS_MO_SM_S moSm;
        TAPI_SMS_MT_SM_S mtSm;
    } smBody;
} TAPI_SMS_SIM_STORE_SM_S;

typedef struct _TAPI_SMS_NOTIFY_RECV_NEW_SM_S {
    int sequenceNumber;
    unsigned char smType;
    unsigned char isConcatenated;
    TAPI_SMS_MT_SM_S mtSm;
} TAPI_SMS_NOTIFY_RECV_NEW_SM_S;

typedef struct _TAPI_SMS_SEND_RESP_S {
    int sequenceNumber;
    unsigned char msgRefNumber;
    int sentResult; /* _TAPI_RESULT_E */
} TAPI_SMS_SEND_RESP_S;

typedef struct _TAPI_SMS_STATUS_REPORT_S {
    unsigned char msgRefNumber;
    TAPI_PHONE_NUMBER_A recipientAddress;
    unsigned char status; /* TP-ST */
    TAPI_SMS_TIME_STAMP_S deliverTime;
} TAPI_SMS_STATUS_REPORT_S;

/* A voice-mail indication. vmInfo bit 0: carried in the user-data header with a real count; bit 2: CPHS style. */
typedef struct _TAPI_SMS_NOTIFY_RECV_VM_SM_S {
    int sequenceNumber;
    unsigned char vmInfo;
    unsigned char vmCount;
    int waitingLine; /* 0 for line 1, 1 for line 2 */
    unsigned char isNeedToStore;
    TAPI_SMS_MT_SM_S mtSm;
} TAPI_SMS_NOTIFY_RECV_VM_SM_S;

/* ---- cell broadcast -------------------------------------------------------------------------------------- */

/* The reception state byte is stored and returned unchanged. */
int TAPI_CB_GetStatus(unsigned char* state);
int TAPI_CB_SetStatus(unsigned char state);

/* Channels 0..65534; 65535 is TAPI_RESULT_INVALID_PARAM. Adding a subscribed channel succeeds and changes
 * nothing; at most TAPI_CB_MAX_CHANNELS are kept (TAPI_RESULT_LIST_FULL). Deleting a channel that is not
 * subscribed is TAPI_RESULT_NOT_FOUND. */
#define TAPI_CB_MAX_CHANNELS 50
int TAPI_CB_AddChannel(unsigned short channel);
int TAPI_CB_DeleteChannel(unsigned short channel);

/* The two list calls store a malloc'ed array in *list whenever list is not null, on failure too (then with
 * *count 0): the caller always frees it. Channels come in the order they were added; language codes in slot
 * order, one per slot (255 marks an unused slot). */
int TAPI_CB_GetChannelsEx(int* count, unsigned short** list);
int TAPI_CB_GetLanguagesEx(int* count, unsigned char** list);

/* Writes one slot; an index past the last slot is TAPI_RESULT_INVALID_PARAM. */
int TAPI_CB_SetLanguage(unsigned short slot, unsigned char language);

typedef struct _TAPI_CB_APP_MSG_S {
    unsigned short serialNumber;
    unsigned short channelNumber;
    unsigned short cbContent[94]; /* UCS-2, NUL-terminated */
} TAPI_CB_APP_MSG_S;

/* ---- mailboxes ------------------------------------------------------------------------------------------- */

/* GSM phase 2+ mailbox types (EF MBDN / MBI / MWIS); any other type is TAPI_RESULT_INVALID_PARAM. */
#define TAPI_MAILBOX_TYPE_VOICE 0
#define TAPI_MAILBOX_TYPE_FAX 1
#define TAPI_MAILBOX_TYPE_EMAIL 2
#define TAPI_MAILBOX_TYPE_OTHER 3

/* Entries need SIM service 2348 (else TAPI_RESULT_NOT_SUPPORTED). The setter takes the name in big-endian
 * UCS-2, as the SIM file keeps it, and fails with TAPI_RESULT_ACCESS_DENIED when the entries are not
 * modifiable; the getter returns it in host order. The number buffer holds TAPI_PHONE_NUMBER_LEN bytes and
 * must be NUL-terminated within it. */
int TAPI_MAILBOX_Gsmr4GetEntry(unsigned char type, char* number, unsigned short* name);
int TAPI_MAILBOX_Gsmr4SetEntry(unsigned char type, const char* number, const unsigned short* name);
int TAPI_MAILBOX_Gsmr4IsModifiable(unsigned char* modifiable);

/* Waiting counts need SIM service 2349 (else TAPI_RESULT_NOT_SUPPORTED). */
int TAPI_MAILBOX_Gsmr4GetMailCount(unsigned char type, unsigned char* count);
int TAPI_MAILBOX_Gsmr4SetMailCount(unsigned char type, unsigned char count);

/* CPHS voice mailbox per line: 1 or 2 (else TAPI_RESULT_INVALID_PARAM); names in host order both ways. */
#define TAPI_TEL_LINE_1 1
#define TAPI_TEL_LINE_2 2
int TAPI_MAILBOX_CphsGetVoiceMailBox(unsigned char line, char* number, unsigned short* name);
int TAPI_MAILBOX_CphsSetVoiceMailBox(unsigned char line, const char* number, const unsigned short* name);

/* CPHS message-waiting flag of line 0 (first line) or 1 (second); waiting is non-zero when mail waits. */
int TAPI_CPHS_SetMessageWaitingFlag(unsigned char line, unsigned char waiting);

/* ---- utilities ------------------------------------------------------------------------------------------- */

/* UCS-2 to the GSM 7-bit default alphabet, one byte per character and an escape (0x1B) plus a byte for each
 * character of the extension table. Conversion stops at srcLen units or at a NUL unit, which is not converted.
 * Returns the number of bytes written, never more than dstLen: a character (or escape pair) that no longer
 * fits is not written, yet the rest of the text is still checked. Returns 65535 when a character has no GSM
 * equivalent, or for a null src with srcLen > 0 or a null dst with dstLen > 0. dst is not NUL-terminated. */
#define TAPI_UTIL_NOT_GSM 65535
unsigned short TAPI_UTIL_ConvertUcs2StringToGsmString(const unsigned short* src, unsigned short srcLen,
                                                      unsigned char* dst, unsigned short dstLen);

#ifdef __cplusplus
}
#endif

#endif /* ZOR_TAPI_H */
