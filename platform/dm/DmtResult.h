// Result codes of every DM tree operation.
//
//   code  name                        when
//   ----  --------------------------  ------------------------------------------------------------------
//      0  DMT_RESULT_SUCCESS          the operation did what it was asked
//      1  DMT_RESULT_FAIL             general failure: the factory is not initialised (any call),
//                                     Uninitialize below a count of 1, Commit or Rollback without an
//                                     open transaction, the database is busy, damaged or unwritable
//     20  DMT_RESULT_CONSTRAINT       a constraint of the database failed
//     22  DMT_RESULT_READ_ONLY        a write through a shared (read-only) lock
//     23  DMT_RESULT_INVALID_PARAM    invalid parameter: a malformed path or child name, an empty value,
//                                     a typed read of a value of another type (there is no conversion)
//    404  DMT_RESULT_NOT_FOUND        the node does not exist (a missing subtree root included)
//    405  DMT_RESULT_NOT_ALLOWED      command not allowed: a child under a leaf, the children or the
//                                     child values of a leaf, the value of an interior node, a leaf
//                                     that would replace an interior node
//    406  DMT_RESULT_OPTIONAL_FEATURE an optional feature that this tree does not have
//    418  DMT_RESULT_ALREADY_EXISTS   the node to create exists already
//    500  DMT_RESULT_TX_OPEN          Begin while a transaction is open
#pragma once

enum DmtResult : int {
    DMT_RESULT_SUCCESS = 0,
    DMT_RESULT_FAIL = 1,
    DMT_RESULT_CONSTRAINT = 20,
    DMT_RESULT_READ_ONLY = 22,
    DMT_RESULT_INVALID_PARAM = 23,
    DMT_RESULT_NOT_FOUND = 404,
    DMT_RESULT_NOT_ALLOWED = 405,
    DMT_RESULT_OPTIONAL_FEATURE = 406,
    DMT_RESULT_ALREADY_EXISTS = 418,
    DMT_RESULT_TX_OPEN = 500,
};
