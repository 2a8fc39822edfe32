// Result codes of the address-book engine: 0 is success, failures are negative.
#pragma once

enum ADDRBK_ENG_RESULT_T : int {
    ADDRBK_ENG_RESULT_SUCCESS = 0,
    ADDRBK_ENG_RESULT_FAIL = -1,
    ADDRBK_ENG_RESULT_NOT_FOUND = -100,
    // The handler does not serve this kind of request (or there is no handler at all).
    ADDRBK_ENG_RESULT_NOT_HANDLED = -101,
    ADDRBK_ENG_RESULT_INVALID_PARAM = -200,
};
