// The platform's application identities. A configuration store is opened for one of them.
#pragma once

class AM_Global {
public:
    enum Apps {
        APP_IDLE = 0,
        APP_PHONE = 1,
        APP_CONTACTS = 2,
        APP_MESSAGING = 3,
        APP_BROWSER = 4,
        APP_CAMERA = 5,
        APP_SETTINGS = 6
    };
};
