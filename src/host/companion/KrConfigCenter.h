#pragma once

/// The product's centre of settings. The module makes one at its start, hands it out and destroys it at its unload;
/// it holds nothing of its own.
class KrConfigCenter {
 public:
  KrConfigCenter() = default;
  KrConfigCenter(const KrConfigCenter&) = delete;
  KrConfigCenter& operator=(const KrConfigCenter&) = delete;
  ~KrConfigCenter() = default;
};
