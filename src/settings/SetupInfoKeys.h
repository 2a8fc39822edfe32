// Every key of the messaging groups, declared once: its group, name, store type, access and default.
// The key table, the ids the getters and setters use, the msgctr settings verbs and the tests' key rows
// are all expanded from this one list, so a key cannot be added to one of them and missed by another.
//
// X(GROUP, KEY, TYPE, ACCESS, DEFAULT): GROUP is a MSGCTR_ENG_SetupInfo group constant, KEY the key as
// stored, TYPE a SetupInfoKey::VALUE_TYPE__ suffix, ACCESS a SetupInfoKey::ACCESS__ suffix, DEFAULT an
// expression of the type SetupInfoKey keeps defaults in.
#pragma once

#define MSGCTR_SETUP_INFO_KEYS(X)                                                                        \
    X(GROUP_MSGCTR_SMS, SEQ_NUM_OF_SEND_BY_MUL, UINT, GET_SET, 0u)                                        \
    X(GROUP_MSGCTR_SMS, SIGNATURE_CONTENT, ANY_TEXT, GET_SET, QString())                                 \
    X(GROUP_MSGCTR_SMS, SIGNATURE_AUTO_INCLUDE, BOOL, GET_SET, false)                                     \
    X(GROUP_MSGCTR_SMS, SMS_DELIVERY_REPORT_ENABLED_FLAG, BOOL, GET_SET, false)                           \
    X(GROUP_MSGCTR_SMS, INCOM_SMS_PREF_STORAGE, UINT, GET_SET, 0u)                                        \
    X(GROUP_MSGCTR_SMS, INCOM_SMS_MSG_PREF_USER_DEF_STORAGE, TEXT, GET_SET, QStringLiteral("Inbox"))      \
    /* Kept in the SMS group on purpose. */                                                              \
    X(GROUP_MSGCTR_SMS, INCOM_MMS_MSG_PREF_STORAGE, UINT, GET_SET, 0u)                                    \
    X(GROUP_MSGCTR_SMS, INCOM_MMS_MSG_PREF_USER_DEF_STORAGE, TEXT, GET_SET, QStringLiteral("Inbox"))      \
    X(GROUP_MSGCTR_SMS, SMS_VALIDITY_TIME, INT, GET_SET, -1)                                              \
    X(GROUP_MSGCTR_SMS, EMAIL_GATEWAY, TEXT, GET_SET, QString(QLatin1String("")))                         \
    X(GROUP_MSGCTR_SMS, EMAIL_MMS_NOTICE, BOOL, GET_SET, false)                                           \
    X(GROUP_MSGCTR_SMS, EMAIL_GATEWAY_WARNING, BOOL, GET_SET, true)                                       \
    X(GROUP_MSGCTR_SMS, USER_DEF_QUICK_TEXTS, TEXT_LIST, GET_SET, QStringList())                          \
    X(GROUP_MSGCTR_SMS, ALLOW_MANUAL_CHOOSE_MSG_TYPE_IN_COMPOSER, BOOL, GET, true)                        \
    X(GROUP_MSGCTR_SMS, MAX_SMS_UNIT, INT, GET, 0)                                                        \
    X(GROUP_MSGCTR_SMS, MAX_SMS_VALUE, INT, GET, 10)                                                      \
    X(GROUP_MSGCTR_SMS, NEED_RETRY_SEND_SMS, BOOL, GET, false)                                            \
    X(GROUP_MSGCTR_SMS, RETRY_SEND_SMS_TIME_INTERVAL, INT_LIST, GET, (QList<int>{5, 10}))                 \
    X(GROUP_MSGCTR_SMS, SMS_VALIDITY_TIME_LIST_FOR_SELECTION, INT_LIST, GET,                               \
      (QList<int>{3600, 21600, 86400, 604800, -1}))                                                       \
    X(GROUP_MSGCTR_SMS, SMS_MAX_USERDEF_SMS_PROF_NUM, INT, GET, 5)                                        \
    X(GROUP_MSGCTR_SMS, SMS_CHARACTER_ENCODING_MODE, INT, GET_SET,                                        \
      int(MSGCTR_ENG_SetupInfo::SMS_CHARACTER_ENCODING_MODE__AUTOMATIC))                                  \
    X(GROUP_MSGCTR_SMS, SMS_LONG_SMS_FUNC_ACTIVATED, BOOL, GET_SET, true)                                 \
    X(GROUP_MSGCTR_GENERAL, MSG_SAVE_OUTGOING, BOOL, GET_SET, true)                                       \
    X(GROUP_MSGCTR_VM, VOICE_MAIL_SRV_CTR_NUMBER, TEXT, GET_SET, QString())                               \
    X(GROUP_MSGCTR_VM, VOICE_MAIL_SRV_CTR_NUMBER2, TEXT, GET_SET, QString())                              \
    X(GROUP_MSGCTR_VM, VOICE_MAIL_SRV_CTR_NAME, TEXT, GET_SET, QString())                                 \
    X(GROUP_MSGCTR_VM, VOICE_MAIL_SRV_CTR_NAME2, TEXT, GET_SET, QString())                                \
    X(GROUP_MSGCTR_VM, VOICE_MAIL_COUNT, UINT, GET_SET, 0u)                                               \
    X(GROUP_MSGCTR_VM, VOICE_MAIL_COUNT2, UINT, GET_SET, 0u)                                              \
    X(GROUP_MSGCTR_VM, IMSI_CHANGED_FLAG, BOOL, STATIC_GET_SET, false)                                    \
    X(GROUP_MSGCTR_VM, VOICE_MAIL_COUNTABLE, BOOL, STATIC_GET_SET, false)                                 \
    X(GROUP_MSGCTR_WAP, WAP_ALLOWED_PUSH_SMSC_MODE, INT, GET_SET,                                         \
      int(MSGCTR_ENG_SetupInfo::WAP_ALLOWED_PUSH_SMSC_MODE__RECEIVE_ALL))                                 \
    X(GROUP_MSGCTR_WAP, WAP_ALLOWED_PPG_S, TEXT, GET_SET, QString())                                      \
    X(GROUP_MSGCTR_WAP, WHITELIST_PAIR1, TEXT, GET, QString())                                            \
    X(GROUP_MSGCTR_WAP, WHITELIST_PAIR2, TEXT, GET, QString())                                            \
    X(GROUP_MSGCTR_WAP, WHITELIST_PAIR3, TEXT, GET, QString())                                            \
    X(GROUP_MSGCTR_WAP, WHITELIST_PAIR4, TEXT, GET, QString())                                            \
    X(GROUP_MSGCTR_WAP, WHITELIST_PAIR5, TEXT, GET, QString())                                            \
    X(GROUP_MSGCTR_WAP, WHITELIST_PAIR6, TEXT, GET, QString())                                            \
    X(GROUP_MSGCTR_WAP, WHITELIST_PAIR7, TEXT, GET, QString())                                            \
    X(GROUP_MSGCTR_WAP, WHITELIST_PAIR8, TEXT, GET, QString())                                            \
    X(GROUP_MSGCTR_WAP, WHITELIST_PAIR9, TEXT, GET, QString())                                            \
    X(GROUP_MSGCTR_WAP, WHITELIST_PAIR10, TEXT, GET, QString())                                           \
    X(GROUP_MSGCTR_WAP, MAX_VALID_SMSC, TEXT, GET, QString())                                             \
    X(GROUP_MSGCTR_WAP, MIN_VALID_SMSC, TEXT, GET, QString())                                             \
    X(GROUP_MSGCTR_WAP, PUSH_SER_LOADING_SECURITY_TYPE, INT, GET_SET,                                     \
      int(MSGCTR_ENG_SetupInfo::PUSH_SL_SECURITY_ASK))                                                    \
    X(GROUP_MSGCTR_INFO_SERV, INFO_SERV_CHANNEL_LIST, TEXT, GET_SET, QString(QLatin1String("")))          \
    X(GROUP_MSGCTR_INFO_SERV, SAVE_INFO_SERV_QUICKVIEW_MSG, BOOL, GET_SET, true)                          \
    X(GROUP_MSGCTR_INFO_SERV, CB_CHNLS_IDL_SL, INT_LIST, GET, (QList<int>{50}))                           \
    X(GROUP_MSGCTR_INFO_SERV, CB_MAX_LEN_IDL, INT, GET, 15)                                               \
    X(GROUP_MSGCTR_INFO_SERV, CELL_WIDE_CB, BOOL, GET, true)                                              \
    X(GROUP_4_DEBUG, OUTPUT_DEBUG_LOG, BOOL, GET_SET, false)

// The ids of the keys, in the order of the list: SETUP_KEY__<KEY>.
enum SetupInfoKeyId {
#define MSGCTR_SETUP_INFO_KEY_ID(group, key, type, access, defaultValue) SETUP_KEY__##key,
    MSGCTR_SETUP_INFO_KEYS(MSGCTR_SETUP_INFO_KEY_ID)
#undef MSGCTR_SETUP_INFO_KEY_ID
    SETUP_INFO_KEY_COUNT
};
