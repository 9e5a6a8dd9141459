#include "host/rx/ErrorStatus.h"

const ACHAR* acadErrorStatusText(Acad::ErrorStatus status) {
  switch (status) {
#define KR_CASE(name, number) \
  case Acad::name:            \
    return L## #name;
    KR_ACAD_ERROR_STATUS_LIST(KR_CASE)
#undef KR_CASE
  }
  return L"eUnknownStatus";
}
