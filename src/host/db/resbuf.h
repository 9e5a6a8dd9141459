#pragma once

#include <cstddef>
#include <cstdint>

// The value list that xdata, dictionaries of records and the editor services exchange: a chain of typed values.

using ads_real = double;
using ads_point = ads_real[3];
using ads_matrix = ads_real[4][4];

/// An entity or a selection set as the editor services know it: an entity name holds its id in element 0, a set its
/// number in element 1. Both 0: no name.
using ads_name = std::int64_t[2];

struct ads_binary {
  short clen;  ///< number of bytes
  char* buf;   ///< owned by the chain it hangs in
};

union ads_u_val {
  ads_real rreal;
  ads_real rpoint[3];
  short rint;
  wchar_t* rstring;  ///< owned by the chain (acutRelRb frees it)
  std::int64_t rlname[2];
  std::int32_t rlong;
  std::int64_t mnInt64;
  ads_binary rbinary;
};

struct resbuf {
  resbuf* rbnext;
  short restype;  ///< one of the RT codes below, or a group code of the exchange format
  ads_u_val resval;
};

// Types of values.
inline constexpr int RTNONE = 5000;     ///< no value; also: the user gave an empty answer
inline constexpr int RTREAL = 5001;     ///< rreal
inline constexpr int RTPOINT = 5002;    ///< rpoint, 2D
inline constexpr int RTSHORT = 5003;    ///< rint
inline constexpr int RTANG = 5004;      ///< rreal, radians
inline constexpr int RTSTR = 5005;      ///< rstring
inline constexpr int RTENAME = 5006;    ///< rlname
inline constexpr int RTPICKS = 5007;    ///< rlname, a selection set
inline constexpr int RTORINT = 5008;    ///< rreal, orientation in radians
inline constexpr int RT3DPOINT = 5009;  ///< rpoint
inline constexpr int RTLONG = 5010;     ///< rlong
inline constexpr int RTVOID = 5014;     ///< no value
inline constexpr int RTLB = 5016;       ///< a list begins
inline constexpr int RTLE = 5017;       ///< a list ends
inline constexpr int RTDOTE = 5018;     ///< a dotted pair ends
inline constexpr int RTNIL = 5019;      ///< nil
inline constexpr int RTDXF0 = 5020;     ///< group code 0 in an argument list, where 0 itself ends the list
inline constexpr int RTT = 5021;        ///< true
inline constexpr int RTRESBUF = 5023;   ///< a resbuf

// Results of the editor services.
inline constexpr int RTNORM = 5100;    ///< it succeeded
inline constexpr int RTERROR = -5001;  ///< it failed
inline constexpr int RTCAN = -5002;    ///< the user cancelled
inline constexpr int RTREJ = -5003;    ///< the request is refused
inline constexpr int RTFAIL = -5004;   ///< the link to the program failed
inline constexpr int RTKWORD = -5005;  ///< the answer is a keyword: acedGetInput gives it

inline void ads_name_clear(ads_name name) {
  name[0] = name[1] = 0;
}
inline void ads_name_set(const ads_name from, ads_name to) {
  to[0] = from[0], to[1] = from[1];
}
inline bool ads_name_equal(const ads_name a, const ads_name b) {
  return a[0] == b[0] && a[1] == b[1];
}
inline bool ads_name_nil(const ads_name name) {
  return name[0] == 0 && name[1] == 0;
}
inline void ads_point_set(const ads_point from, ads_point to) {
  to[0] = from[0], to[1] = from[1], to[2] = from[2];
}

/// A new link for a value of `type`, its value zeroed and rbnext null. Null for a type that no value can have.
resbuf* acutNewRb(int type);

/// Frees the whole chain with its strings and binary chunks. A null chain is RTNORM too.
int acutRelRb(resbuf* chain);

/// A chain from pairs of type and value, ended by 0 (or RTNONE): acutBuildList(RTSTR, L"a", RTREAL, 1.0, 0).
/// Text is copied. Reals are given as double, points as ads_point, shorts and longs as int, names as ads_name.
/// Null for a type that no value can have.
resbuf* acutBuildList(int type, ...);

/// Copies a text into memory that acutDelString frees and that a chain may own.
int acutNewString(const wchar_t* text, wchar_t*& copy);
void acutDelString(wchar_t*& text);
