#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/db/AcCmColor.h"
#include "host/db/AcDbEnums.h"
#include "host/db/AcDbHandle.h"
#include "host/db/AcDbObjectId.h"
#include "host/ge/ge.h"

// All variables of a drawing's header in the order of a DWG file's stream; behind UNKNOWN_SHORT4 those that a DWG keeps
// elsewhere. X(name, type, group code in a DXF or 0, place in a DXF header or -1, default of up to three numbers).
// clang-format off
#define KR_DB_HEADER_VARS(X) \
  X(UNIT_RATIO1, kReal, 0, -1, 412148564080.0, 0, 0) \
  X(UNIT_RATIO2, kReal, 0, -1, 1.0, 0, 0)            \
  X(UNIT_RATIO3, kReal, 0, -1, 1.0, 0, 0)            \
  X(UNIT_RATIO4, kReal, 0, -1, 1.0, 0, 0)            \
  X(UNIT_NAME1, kText, 0, -1, 0, 0, 0)               \
  X(UNIT_NAME2, kText, 0, -1, 0, 0, 0)               \
  X(UNIT_NAME3, kText, 0, -1, 0, 0, 0)               \
  X(UNIT_NAME4, kText, 0, -1, 0, 0, 0)               \
  X(UNKNOWN_LONG1, kLong, 0, -1, 0, 0, 0)            \
  X(UNKNOWN_LONG2, kLong, 0, -1, 0, 0, 0)            \
  X(VIEWPORT_HEADER, kId, 0, -1, 0, 0, 0)            \
  X(DIMASO, kBit, 70, 44, 1, 0, 0)                   \
  X(DIMSHO, kBit, 70, 45, 1, 0, 0)                   \
  X(PLINEGEN, kBit, 70, 176, 0, 0, 0)                \
  X(ORTHOMODE, kBit, 70, 8, 0, 0, 0)                 \
  X(REGENMODE, kBit, 70, 9, 1, 0, 0)                 \
  X(FILLMODE, kBit, 70, 10, 1, 0, 0)                 \
  X(QTEXTMODE, kBit, 70, 11, 0, 0, 0)                \
  X(PSLTSCALE, kBit, 70, 177, 1, 0, 0)               \
  X(LIMCHECK, kBit, 70, 100, 0, 0, 0)                \
  X(USRTIMER, kBit, 70, 112, 1, 0, 0)                \
  X(SKPOLY, kBit, 70, 105, 0, 0, 0)                  \
  X(ANGDIR, kBit, 70, 114, 0, 0, 0)                  \
  X(SPLFRAME, kBit, 70, 118, 0, 0, 0)                \
  X(MIRRTEXT, kBit, 70, 12, 0, 0, 0)                 \
  X(WORLDVIEW, kBit, 70, 163, 1, 0, 0)               \
  X(TILEMODE, kBit, 70, 166, 1, 0, 0)                \
  X(PLIMCHECK, kBit, 70, 169, 0, 0, 0)               \
  X(VISRETAIN, kBit, 70, 175, 1, 0, 0)               \
  X(DISPSILH, kBit, 70, 22, 0, 0, 0)                 \
  X(PELLIPSE, kBit, 0, -1, 0, 0, 0)                  \
  X(PROXYGRAPHICS, kShort, 70, 182, 1, 0, 0)         \
  X(TREEDEPTH, kShort, 70, 178, 3020, 0, 0)          \
  X(LUNITS, kShort, 70, 90, 2, 0, 0)                 \
  X(LUPREC, kShort, 70, 91, 4, 0, 0)                 \
  X(AUNITS, kShort, 70, 94, 0, 0, 0)                 \
  X(AUPREC, kShort, 70, 95, 0, 0, 0)                 \
  X(ATTMODE, kShort, 70, 14, 1, 0, 0)                \
  X(PDMODE, kShort, 70, 115, 0, 0, 0)                \
  X(USERI1, kShort, 70, 153, 0, 0, 0)                \
  X(USERI2, kShort, 70, 154, 0, 0, 0)                \
  X(USERI3, kShort, 70, 155, 0, 0, 0)                \
  X(USERI4, kShort, 70, 156, 0, 0, 0)                \
  X(USERI5, kShort, 70, 157, 0, 0, 0)                \
  X(SPLINESEGS, kShort, 70, 120, 8, 0, 0)            \
  X(SURFU, kShort, 70, 125, 6, 0, 0)                 \
  X(SURFV, kShort, 70, 126, 6, 0, 0)                 \
  X(SURFTYPE, kShort, 70, 124, 6, 0, 0)              \
  X(SURFTAB1, kShort, 70, 122, 6, 0, 0)              \
  X(SURFTAB2, kShort, 70, 123, 6, 0, 0)              \
  X(SPLINETYPE, kShort, 70, 119, 6, 0, 0)            \
  X(SHADEDGE, kShort, 70, 164, 3, 0, 0)              \
  X(SHADEDIF, kShort, 70, 165, 70, 0, 0)             \
  X(UNITMODE, kShort, 70, 174, 0, 0, 0)              \
  X(MAXACTVP, kShort, 70, 167, 64, 0, 0)             \
  X(ISOLINES, kShort, 0, -1, 4, 0, 0)                \
  X(CMLJUST, kShort, 70, 180, 0, 0, 0)               \
  X(TEXTQLTY, kShort, 0, -1, 50, 0, 0)               \
  X(LTSCALE, kReal, 40, 13, 1.0, 0, 0)               \
  X(TEXTSIZE, kReal, 40, 15, 2.5, 0, 0)              \
  X(TRACEWID, kReal, 40, 16, 1.0, 0, 0)              \
  X(SKETCHINC, kReal, 40, 92, 1.0, 0, 0)             \
  X(FILLETRAD, kReal, 40, 93, 0, 0, 0)               \
  X(THICKNESS, kReal, 40, 99, 0.0, 0, 0)             \
  X(ANGBASE, kReal, 50, 113, 0.0, 0, 0)              \
  X(PDSIZE, kReal, 40, 116, 0.0, 0, 0)               \
  X(PLINEWID, kReal, 40, 117, 0.0, 0, 0)             \
  X(USERR1, kReal, 40, 158, 0.0, 0, 0)               \
  X(USERR2, kReal, 40, 159, 0.0, 0, 0)               \
  X(USERR3, kReal, 40, 160, 0.0, 0, 0)               \
  X(USERR4, kReal, 40, 161, 0.0, 0, 0)               \
  X(USERR5, kReal, 40, 162, 0.0, 0, 0)               \
  X(CHAMFERA, kReal, 40, 101, 0, 0, 0)               \
  X(CHAMFERB, kReal, 40, 102, 0, 0, 0)               \
  X(CHAMFERC, kReal, 40, 103, 0, 0, 0)               \
  X(CHAMFERD, kReal, 40, 104, 0.0, 0, 0)             \
  X(FACETRES, kReal, 0, -1, 0.5, 0, 0)               \
  X(CMLSCALE, kReal, 40, 181, 20.0, 0, 0)            \
  X(CELTSCALE, kReal, 40, 21, 1.0, 0, 0)             \
  X(MENU, kText, 1, 96, 0, 0, 0)                     \
  X(TDCREATE, kTime, 40, 106, 0, 0, 0)               \
  X(TDUPDATE, kTime, 40, 108, 0, 0, 0)               \
  X(TDINDWG, kTime, 40, 110, 0, 0, 0)                \
  X(TDUSRTIMER, kTime, 40, 111, 0, 0, 0)             \
  X(CECOLOR, kColor, 62, 20, 256, 0, 0)              \
  X(HANDSEED, kHandle, 5, 121, 0, 0, 0)              \
  X(CLAYER, kId, 8, 18, 0, 0, 0)                     \
  X(TEXTSTYLE, kId, 7, 17, 0, 0, 0)                  \
  X(CELTYPE, kId, 6, 19, 0, 0, 0)                    \
  X(DIMSTYLE, kId, 2, 59, 0, 0, 0)                   \
  X(CMLSTYLE, kId, 2, 179, 0, 0, 0)                  \
  X(PSVPSCALE, kReal, 40, 197, 0.0, 0, 0)            \
  X(PINSBASE, kPoint3d, 10, 168, 0, 0, 0)            \
  X(PEXTMIN, kPoint3d, 10, 170, 1e20, 1e20, 1e20)    \
  X(PEXTMAX, kPoint3d, 10, 171, -1e20, -1e20, -1e20) \
  X(PLIMMIN, kPoint2d, 10, 172, 0, 0, 0)             \
  X(PLIMMAX, kPoint2d, 10, 173, 420, 297, 0)         \
  X(PELEVATION, kReal, 40, 98, 0.0, 0, 0)            \
  X(PUCSORG, kPoint3d, 10, 142, 0, 0, 0)             \
  X(PUCSXDIR, kPoint3d, 10, 143, 1, 0, 0)            \
  X(PUCSYDIR, kPoint3d, 10, 144, 0, 1, 0)            \
  X(PUCSNAME, kId, 2, 141, 0, 0, 0)                  \
  X(PUCSORTHOREF, kId, 2, 145, 0, 0, 0)              \
  X(PUCSORTHOVIEW, kShort, 70, 146, 0, 0, 0)         \
  X(PUCSBASE, kId, 2, 140, 0, 0, 0)                  \
  X(PUCSORGTOP, kPoint3d, 10, 147, 0, 0, 0)          \
  X(PUCSORGBOTTOM, kPoint3d, 10, 148, 0, 0, 0)       \
  X(PUCSORGLEFT, kPoint3d, 10, 149, 0, 0, 0)         \
  X(PUCSORGRIGHT, kPoint3d, 10, 150, 0, 0, 0)        \
  X(PUCSORGFRONT, kPoint3d, 10, 151, 0, 0, 0)        \
  X(PUCSORGBACK, kPoint3d, 10, 152, 0, 0, 0)         \
  X(INSBASE, kPoint3d, 10, 3, 0, 0, 0)               \
  X(EXTMIN, kPoint3d, 10, 4, 1e20, 1e20, 1e20)       \
  X(EXTMAX, kPoint3d, 10, 5, -1e20, -1e20, -1e20)    \
  X(LIMMIN, kPoint2d, 10, 6, 0, 0, 0)                \
  X(LIMMAX, kPoint2d, 10, 7, 420, 297, 0)            \
  X(ELEVATION, kReal, 40, 97, 0.0, 0, 0)             \
  X(UCSORG, kPoint3d, 10, 129, 0, 0, 0)              \
  X(UCSXDIR, kPoint3d, 10, 130, 1, 0, 0)             \
  X(UCSYDIR, kPoint3d, 10, 131, 0, 1, 0)             \
  X(UCSNAME, kId, 2, 128, 0, 0, 0)                   \
  X(UCSORTHOREF, kId, 2, 132, 0, 0, 0)               \
  X(UCSORTHOVIEW, kShort, 70, 133, 0, 0, 0)          \
  X(UCSBASE, kId, 2, 127, 0, 0, 0)                   \
  X(UCSORGTOP, kPoint3d, 10, 134, 0, 0, 0)           \
  X(UCSORGBOTTOM, kPoint3d, 10, 135, 0, 0, 0)        \
  X(UCSORGLEFT, kPoint3d, 10, 136, 0, 0, 0)          \
  X(UCSORGRIGHT, kPoint3d, 10, 137, 0, 0, 0)         \
  X(UCSORGFRONT, kPoint3d, 10, 138, 0, 0, 0)         \
  X(UCSORGBACK, kPoint3d, 10, 139, 0, 0, 0)          \
  X(DIMPOST, kText, 1, 46, 0, 0, 0)                  \
  X(DIMAPOST, kText, 1, 47, 0, 0, 0)                 \
  X(DIMSCALE, kReal, 40, 23, 1.0, 0, 0)              \
  X(DIMASZ, kReal, 40, 24, 2.5, 0, 0)                \
  X(DIMEXO, kReal, 40, 25, 0.625, 0, 0)              \
  X(DIMDLI, kReal, 40, 26, 3.75, 0, 0)               \
  X(DIMEXE, kReal, 40, 29, 1.25, 0, 0)               \
  X(DIMRND, kReal, 40, 27, 0.0, 0, 0)                \
  X(DIMDLE, kReal, 40, 28, 0.0, 0, 0)                \
  X(DIMTP, kReal, 40, 30, 0.0, 0, 0)                 \
  X(DIMTM, kReal, 40, 31, 0.0, 0, 0)                 \
  X(DIMTOL, kBit, 70, 35, 0, 0, 0)                   \
  X(DIMLIM, kBit, 70, 36, 0, 0, 0)                   \
  X(DIMTIH, kBit, 70, 37, 0, 0, 0)                   \
  X(DIMTOH, kBit, 70, 38, 0, 0, 0)                   \
  X(DIMSE1, kBit, 70, 39, 0, 0, 0)                   \
  X(DIMSE2, kBit, 70, 40, 0, 0, 0)                   \
  X(DIMTAD, kShort, 70, 41, 1, 0, 0)                 \
  X(DIMZIN, kShort, 70, 42, 8, 0, 0)                 \
  X(DIMAZIN, kShort, 70, 81, 0, 0, 0)                \
  X(DIMTXT, kReal, 40, 32, 2.5, 0, 0)                \
  X(DIMCEN, kReal, 40, 33, 2.5, 0, 0)                \
  X(DIMTSZ, kReal, 40, 34, 0.0, 0, 0)                \
  X(DIMALTF, kReal, 40, 50, 0.03937007874016, 0, 0)  \
  X(DIMLFAC, kReal, 40, 51, 1.0, 0, 0)               \
  X(DIMTVP, kReal, 40, 53, 0.0, 0, 0)                \
  X(DIMTFAC, kReal, 40, 63, 1.0, 0, 0)               \
  X(DIMGAP, kReal, 40, 64, 0.625, 0, 0)              \
  X(DIMALTRND, kReal, 40, 80, 0.0, 0, 0)             \
  X(DIMALT, kBit, 70, 48, 0, 0, 0)                   \
  X(DIMALTD, kShort, 70, 49, 3, 0, 0)                \
  X(DIMTOFL, kBit, 70, 52, 1, 0, 0)                  \
  X(DIMSAH, kBit, 70, 56, 0, 0, 0)                   \
  X(DIMTIX, kBit, 70, 54, 0, 0, 0)                   \
  X(DIMSOXD, kBit, 70, 55, 0, 0, 0)                  \
  X(DIMCLRD, kColor, 70, 60, 0, 0, 0)                \
  X(DIMCLRE, kColor, 70, 61, 0, 0, 0)                \
  X(DIMCLRT, kColor, 70, 62, 0, 0, 0)                \
  X(DIMADEC, kShort, 70, 79, 0, 0, 0)                \
  X(DIMDEC, kShort, 70, 73, 2, 0, 0)                 \
  X(DIMTDEC, kShort, 70, 74, 2, 0, 0)                \
  X(DIMALTU, kShort, 70, 75, 2, 0, 0)                \
  X(DIMALTTD, kShort, 70, 76, 3, 0, 0)               \
  X(DIMAUNIT, kShort, 70, 78, 0, 0, 0)               \
  X(DIMFRAC, kShort, 70, 84, 0, 0, 0)                \
  X(DIMLUNIT, kShort, 70, 86, 2, 0, 0)               \
  X(DIMDSEP, kShort, 70, 82, 46, 0, 0)               \
  X(DIMTMOVE, kShort, 70, 89, 0, 0, 0)               \
  X(DIMJUST, kShort, 70, 65, 0, 0, 0)                \
  X(DIMSD1, kBit, 70, 66, 0, 0, 0)                   \
  X(DIMSD2, kBit, 70, 67, 0, 0, 0)                   \
  X(DIMTOLJ, kShort, 70, 68, 0, 0, 0)                \
  X(DIMTZIN, kShort, 70, 69, 8, 0, 0)                \
  X(DIMALTZ, kShort, 70, 70, 0, 0, 0)                \
  X(DIMALTTZ, kShort, 70, 71, 0, 0, 0)               \
  X(DIMUPT, kBit, 70, 72, 0, 0, 0)                   \
  X(DIMATFIT, kShort, 70, 83, 3, 0, 0)               \
  X(DIMTXSTY, kId, 7, 77, 0, 0, 0)                   \
  X(DIMLDRBLK, kId, 1, 85, 0, 0, 0)                  \
  X(DIMBLK, kId, 1, 43, 0, 0, 0)                     \
  X(DIMBLK1, kId, 1, 57, 0, 0, 0)                    \
  X(DIMBLK2, kId, 1, 58, 0, 0, 0)                    \
  X(DIMLWD, kShort, 70, 87, -2, 0, 0)                \
  X(DIMLWE, kShort, 70, 88, -2, 0, 0)                \
  X(BLOCK_CONTROL, kId, 0, -1, 0, 0, 0)              \
  X(LAYER_CONTROL, kId, 0, -1, 0, 0, 0)              \
  X(STYLE_CONTROL, kId, 0, -1, 0, 0, 0)              \
  X(LTYPE_CONTROL, kId, 0, -1, 0, 0, 0)              \
  X(VIEW_CONTROL, kId, 0, -1, 0, 0, 0)               \
  X(UCS_CONTROL, kId, 0, -1, 0, 0, 0)                \
  X(VPORT_CONTROL, kId, 0, -1, 0, 0, 0)              \
  X(APPID_CONTROL, kId, 0, -1, 0, 0, 0)              \
  X(DIMSTYLE_CONTROL, kId, 0, -1, 0, 0, 0)           \
  X(VIEWPORT_HEADER_CONTROL, kId, 0, -1, 0, 0, 0)    \
  X(DICTIONARY_GROUP, kId, 0, -1, 0, 0, 0)           \
  X(DICTIONARY_MLINESTYLE, kId, 0, -1, 0, 0, 0)      \
  X(DICTIONARY_NAMED_OBJECTS, kId, 0, -1, 0, 0, 0)   \
  X(TSTACKALIGN, kShort, 0, -1, 1, 0, 0)             \
  X(TSTACKSIZE, kShort, 0, -1, 70, 0, 0)             \
  X(HYPERLINKBASE, kText, 1, 189, 0, 0, 0)           \
  X(STYLESHEET, kText, 1, 190, 0, 0, 0)              \
  X(DICTIONARY_LAYOUT, kId, 0, -1, 0, 0, 0)          \
  X(DICTIONARY_PLOTSETTINGS, kId, 0, -1, 0, 0, 0)    \
  X(DICTIONARY_PLOTSTYLENAME, kId, 0, -1, 0, 0, 0)   \
  X(FLAGS, kLong, 0, -1, 0x2A1D, 0, 0)               \
  X(INSUNITS, kShort, 70, 188, 4, 0, 0)              \
  X(CEPSNTYPE, kShort, 380, 192, 0, 0, 0)            \
  X(CPSNID, kId, 0, -1, 0, 0, 0)                     \
  X(FINGERPRINTGUID, kText, 2, 194, 0, 0, 0)         \
  X(VERSIONGUID, kText, 2, 195, 0, 0, 0)             \
  X(BLOCK_PAPER_SPACE, kId, 0, -1, 0, 0, 0)          \
  X(BLOCK_MODEL_SPACE, kId, 0, -1, 0, 0, 0)          \
  X(LTYPE_BYLAYER, kId, 0, -1, 0, 0, 0)              \
  X(LTYPE_BYBLOCK, kId, 0, -1, 0, 0, 0)              \
  X(LTYPE_CONTINUOUS, kId, 0, -1, 0, 0, 0)           \
  X(UNKNOWN_SHORT1, kShort, 0, -1, -1, 0, 0)         \
  X(UNKNOWN_SHORT2, kShort, 0, -1, -1, 0, 0)         \
  X(UNKNOWN_SHORT3, kShort, 0, -1, -1, 0, 0)         \
  X(UNKNOWN_SHORT4, kShort, 0, -1, -1, 0, 0)         \
  X(MEASUREMENT, kShort, 70, 183, 1, 0, 0)           \
  X(DIMASSOC, kShort, 0, -1, 2, 0, 0) \
  X(CELWEIGHT, kShort, 370, 184, 0, 0, 0) \
  X(ENDCAPS, kShort, 280, 185, 0, 0, 0) \
  X(JOINSTYLE, kShort, 280, 186, 0, 0, 0) \
  X(LWDISPLAY, kBit, 290, 187, 0, 0, 0) \
  X(XEDIT, kBit, 290, 191, 0, 0, 0) \
  X(EXTNAMES, kBit, 290, 196, 0, 0, 0) \
  X(PSTYLEMODE, kBit, 290, 193, 0, 0, 0) \
  X(OLESTARTUP, kBit, 290, 198, 0, 0, 0)
// clang-format on

/// The values of a drawing's header variables, typed, without any check: what reads and writes files uses these; others
/// go by AcDbDatabase's accessors, which tell reactors.
class AcDbHeader {
 public:
  enum Type : Adesk::UInt8 {
    kBit,      ///< whole(), 0 or 1
    kShort,    ///< whole(), 16 bits
    kLong,     ///< whole(), 32 bits
    kReal,     ///< real()
    kText,     ///< text()
    kId,       ///< id()
    kHandle,   ///< none: the database's handseed
    kPoint3d,  ///< point(), vectors too
    kPoint2d,  ///< point(), z is 0
    kTime,     ///< time()
    kColor     ///< whole(): 0 by block, 256 by layer, 1 to 255
  };
#define KR_DB_HEADER_NAME(name, type, code, place, a, b, c) k##name,
  enum Index : int { KR_DB_HEADER_VARS(KR_DB_HEADER_NAME) kNumVars };
#undef KR_DB_HEADER_NAME
  /// How many of them stand in the stream of a DWG file. Those from CELWEIGHT on are parts of FLAGS.
  static constexpr int kNumInStream = kUNKNOWN_SHORT4 + 1;

  /// What is known of a variable. The names of those that have none of their own are like BLOCK_CONTROL.
  struct Info {
    const char* name;
    Type type;
    Adesk::Int16 dxfCode;   ///< 0: not in a DXF
    Adesk::Int16 dxfPlace;  ///< its place among a DXF's, in the order in which programs write them
  };
  static std::span<const Info> infos();
  static const Info& info(Index index) {
    return infos()[std::size_t(index)];
  }
  /// kNumVars for an unknown name; upper case.
  static Index find(std::string_view name);
  static constexpr Index find(std::wstring_view name);

  /// A day by its Julian number and the milliseconds in it; of durations, days.
  struct Time {
    Adesk::Int32 day = 0;
    Adesk::Int32 milliseconds = 0;
    bool operator==(const Time&) const = default;
  };

  AcDbHeader();

  int whole(Index i) const {
    return i < kCELWEIGHT ? wholes_[std::size_t(i)] : partOfFlags(i);
  }
  void setWhole(Index i, int value) {
    if (i < kCELWEIGHT) {
      wholes_[std::size_t(i)] = value;
    } else {
      setPartOfFlags(i, value);
    }
  }
  double real(Index i) const {
    return points_[std::size_t(i)].x;
  }
  void setReal(Index i, double value) {
    points_[std::size_t(i)].x = value;
  }
  const AcGePoint3d& point(Index i) const {
    return points_[std::size_t(i)];
  }
  void setPoint(Index i, const AcGePoint3d& value) {
    points_[std::size_t(i)] = value;
  }
  AcDbObjectId id(Index i) const {
    return ids_[std::size_t(i)];
  }
  void setId(Index i, AcDbObjectId value) {
    ids_[std::size_t(i)] = value;
  }
  const std::wstring& text(Index i) const {
    return texts_[std::size_t(i)];
  }
  void setText(Index i, std::wstring value) {
    texts_[std::size_t(i)] = std::move(value);
  }
  Time time(Index i) const {
    return {wholes_[std::size_t(i)], seconds_[std::size_t(i)]};
  }
  void setTime(Index i, Time value) {
    wholes_[std::size_t(i)] = value.day;
    seconds_[std::size_t(i)] = value.milliseconds;
  }

 private:
  int partOfFlags(Index index) const;
  void setPartOfFlags(Index index, int value);
  std::array<int, kNumVars> wholes_{};
  std::array<int, kNumVars> seconds_{};
  std::array<AcGePoint3d, kNumVars> points_{};
  std::array<AcDbObjectId, kNumVars> ids_{};
  std::vector<std::wstring> texts_;
};

constexpr AcDbHeader::Index AcDbHeader::find(std::wstring_view name) {
#define KR_DB_HEADER_NAME(name, type, code, place, a, b, c) L## #name,
  constexpr std::wstring_view kNames[] = {KR_DB_HEADER_VARS(KR_DB_HEADER_NAME)};
#undef KR_DB_HEADER_NAME
  int i = 0;
  while (i < kNumVars && kNames[i] != name) ++i;
  return Index(i);
}

/// The number by which drawing files name a lineweight: 0 to 23 for the widths, 29 by layer, 30 by block, 31 default.
/// A number that stands for none comes back as a weight that gives the same number again.
Adesk::UInt8 acdbLineWeightIndex(AcDb::LineWeight weight);
AcDb::LineWeight acdbLineWeightAt(Adesk::UInt8 index);
