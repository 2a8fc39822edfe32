// The platform's per-product feature switches: flex bits and feature ids, each on or off.
//
// On the host they live in the key file state/setup/features.conf under the host root, groups [FLEX_BITS]
// and [FEATURES], one "NUMBER=true|false" line each. Without that file the factory table below applies;
// the first change (ZorHostSetupControl.h) writes the whole table into the file.
//
// Factory flex bits (on unless marked off):
//   49 MMS retrieval rejection, 50 MMS sender visibility, 51 MMS delivery report, 52 MMS read reply,
//   112 Chinese handwriting (off), 147 e-mail over SMS, 148 MMS profile editing, 149 MMS blog (off),
//   150 MMS distribution indicator (off), 151 MMS attaching other files, 178 GSM R4 mailbox (off),
//   205 e-mail, 210 MMS creation mode, 211 multiple MMS profiles, 212 MMS postcard creation (off),
//   213 empty messages, 214 changeable download limit, 215 fixed dialling restriction (off),
//   216 3GPP forwarding, 217 non-conformant forwarding (off), 218 push security, 219 browser messages,
//   220 browser services, 222 general cell broadcast, 223 general SMS settings, 224 information service,
//   225 multiple SMS profiles, 226 smart messaging (off), 227 personal cell broadcast (off),
//   228 SMS templates, 230 SMS voice mail, 231 SMS with subject (off), 232 MMS templates,
//   233 save to favourites (off), 234 MMS 1.2, 235 MMS read report PDU, 236 MMS reply charging (off),
//   237 MMS forward before download (off), 238 MMS MMBox (off), 239 erase MMS on SIM change (off),
//   240 message alert, 269 MMS outgoing size limit, 303 user-chosen incoming SMS storage (off),
//   323 block anonymous MMS, 326 editable e-mail over SMS, 391 quick send (off), 395 favourites (off),
//   399 GPS (off), 421 e-mail in the main menu, 466 postcard recipients packed in one message (off),
//   467 push to talk (off), 506 voice-mail count kept in the SIM mailbox files (off).
// Factory features: 2007 dual line phone (off), 2040 CPHS phone, 2168 voice mail, 2189 voice mail on
// line 2 (off).
// Any other number is not in the table: its flex bit cannot be read and its feature is unavailable.
#pragma once

class SETUP_Utility {
public:
    // True with the bit in *value when the bit is in the table; false, leaving *value untouched, when it
    // is not (or the fault "SETUP_Utility::getFlexBit" is injected).
    static bool getFlexBit(int number, bool* value);
    static bool getFlexBit(int number, bool& value);
    // False for an id that is not in the table. The fault "SETUP_Utility::isFeatureAvailable" answers
    // (result != 0).
    static bool isFeatureAvailable(int id);
};
