#pragma once

/// Enumerations of the run-time extension layer.
struct AcRx {
  /// Result of AcRxObject::comparedTo.
  enum Ordering { kLessThan = -1, kEqual = 0, kGreaterThan = 1, kNotOrderable = 2 };

  /// Order in which a dictionary is walked: by key, or as the entries came.
  enum DictIterType { kDictSorted = 0, kDictCollated = 1 };

  /// Messages of the host to a module's entry point.
  enum AppMsgCode {
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9
  };

  /// What a module's entry point answers.
  enum AppRetCode { kRetOK = 0, kRetError = 3 };
};
