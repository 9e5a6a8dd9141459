#pragma once

#include "host/db/db.h"
#include "host/db/resbuf.h"
#include "host/ed/sysvars.h"

// The editor services: prompts, selection sets, commands, coordinates. They work in the current document and answer
// RTNORM (5100) on success, RTERROR (-5001) on failure, RTCAN (-5002) when the user cancels, and prompts that allow it
// RTNONE (5000) for an empty answer and RTKWORD (-5005) for a keyword, which acedGetInput then gives.
//
// An answer that doesn't fit (no number, a refused zero, a word that is no keyword) is refused with a message and asked
// for again. Points are in the current UCS. A failure sets the variable ERRNO.

// Bits of acedInitGet.
inline constexpr int RSG_NONULL = 0x1;  ///< an empty answer is refused
inline constexpr int RSG_NOZERO = 0x2;  ///< 0 is refused
inline constexpr int RSG_NONEG = 0x4;   ///< a negative number is refused
inline constexpr int RSG_NOLIM = 0x8;   ///< a point outside the drawing's limits is accepted
inline constexpr int RSG_DASH = 0x20;   ///< rubber lines are dashed: of no effect here
inline constexpr int RSG_2D = 0x40;     ///< acedGetDist measures in the plane
inline constexpr int RSG_OTHER = 0x80;  ///< any other text is given as a keyword
inline constexpr int RSG_DDISTFIRST = 0x100;

/// Sets what the next prompt accepts: the bits above, and keywords parted by spaces. A keyword may be shortened down to
/// its capital letters ("LAyer": LA, LAY, ...), or has its short form behind a comma ("LAYER,LA"). Behind an underscore
/// stand the language independent keywords in the same order ("Sim Não _Yes No"): they are what the prompt gives, and
/// may be typed with an underscore in front. Null: no keywords. Holds for one prompt.
int acedInitGet(int bits, const wchar_t* keywords);

/// A line of text. With `spaces` 0 the answer ends at the first space. The short form has room for 132 characters, the
/// long one for capacity - 1; more is cut. An empty answer gives the empty text and RTNORM.
int acedGetString(int spaces, const wchar_t* prompt, wchar_t* result);
int acedGetString(int spaces, const wchar_t* prompt, wchar_t* result, std::size_t capacity);
/// A keyword of acedInitGet, given in full. RTNONE for an empty answer, RTERROR without keywords.
int acedGetKword(const wchar_t* prompt, wchar_t* result);
int acedGetKword(const wchar_t* prompt, wchar_t* result, std::size_t capacity);
/// The keyword, or other text, behind the last RTKWORD. RTERROR when there was none.
int acedGetInput(wchar_t* result);
int acedGetInput(wchar_t* result, std::size_t capacity);
/// A point: pointed at, or typed as x,y or x,y,z, with @ in front relative to the last point, or as distance<angle.
/// A single number is refused: there is no cursor to give it a direction.
int acedGetPoint(const ads_real* base, const wchar_t* prompt, ads_real* result);
int acedGetCorner(const ads_real* base, const wchar_t* prompt, ads_real* result);
int acedGetInt(const wchar_t* prompt, int* result);
int acedGetReal(const wchar_t* prompt, ads_real* result);
/// A distance: typed in any unit form, or two points, the first being `base` when given.
int acedGetDist(const ads_real* base, const wchar_t* prompt, ads_real* result);
/// An angle in radians: typed in AUNITS, or two points, the first being `base` when given.
int acedGetAngle(const ads_real* base, const wchar_t* prompt, ads_real* result);
int acedGetOrient(const ads_real* base, const wchar_t* prompt, ads_real* result);

/// One entity and the point at which it was picked. RTERROR with ERRNO 7 when nothing lies there, with ERRNO 52 for an
/// empty answer; RTKWORD for a keyword.
int acedEntSel(const wchar_t* prompt, ads_name entity, ads_real* point);

/// Makes a selection set. `mode`:
///   null        ask the user, until an empty answer; with pt1 given, pick at that point without asking
///   "X" "A"     all entities of the drawing, "A" without those on frozen layers
///   "W" "C"     window or crossing between pt1 and pt2
///   "WP" "CP"   the same with a polygon, pt1 being a chain of points
///   "F"         fence, pt1 being a chain of points
///   "L" "P" "I" last entity, previous set, implied set (never one here)
///   ":S" ":E" ":L" ":$" in any order: one choice only; everything at the pick; not on locked layers; prompts, of
///               which pt1 holds two texts
/// "_" in front is passed over. `filter` is a chain of group codes that must all match: 0 class (wildcards), 8 layer
/// (wildcards), 6 linetype, 62 colour, 5 handle, and groups -4 "<AND" "AND>" "<OR" "OR>" "<XOR" "XOR>" "<NOT" "NOT>".
/// RTERROR when nothing is selected, with `set` cleared.
int acedSSGet(const wchar_t* mode, const void* pt1, const void* pt2, const resbuf* filter, ads_name set);
/// How many entities the set holds; erased ones don't count.
int acedSSLength(const ads_name set, Adesk::Int32* length);
int acedSSName(const ads_name set, int index, ads_name entity);
/// How the entities came into the set; `index` -1 for all. One list for each entity:
///   RTLB, RTSHORT method, RTENAME entity, RTLONG graphics marker, [RTSHORT kind, RT3DPOINT pick], RTLE
/// Methods: 0 by name, 1 picked, 2 window, 3 crossing, 4 fence. The pick (kind 0: through that point) stands with
/// method 1. The caller frees the chain.
int acedSSNameX(resbuf** chain, const ads_name set, int index);
/// Adds an entity; with a null or cleared set, makes a new one; with a null entity too, an empty one.
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result);
/// RTERROR when the entity isn't in the set.
int acedSSDel(const ads_name entity, const ads_name set);
/// RTNORM when the entity is in the set, else RTERROR.
int acedSSMemb(const ads_name entity, const ads_name set);
int acedSSFree(const ads_name set);

/// Runs commands with the answers to their prompts, ended by 0: texts (RTSTR), points (RTPOINT, RT3DPOINT), numbers
/// (RTREAL, RTSHORT, RTLONG), entities (RTENAME) and sets (RTPICKS); the empty text is Enter. The first argument is the
/// command. What is left over when a command ends begins the next. RTERROR when a command is unknown or fails, RTCAN
/// when it is cancelled.
int acedCommand(int type, ...);
int acedCommandS(int type, ...);
int acedCmd(const resbuf* arguments);
int acedCmdS(const resbuf* arguments);

/// Shows a message. RTNORM.
int acedAlert(const wchar_t* message);
/// Gives a list back to the caller of a function that the editor runs; edhost::returnedList() holds a copy.
int acedRetList(const resbuf* list);
/// Writes a prompt to the terminal.
int acedPrompt(const wchar_t* text);

/// Takes a point or, with `vector` non-zero, a displacement from one frame to another: RTSHORT 0 world, 1 current UCS,
/// 2 display, 3 paper display; RT3DPOINT the entity frame of that normal; RTENAME the entity frame of that entity.
int acedTrans(const ads_real* point, const resbuf* from, const resbuf* to, int vector, ads_real* result);

/// The current viewport: the active paper viewport record in a layout, else the model's. Null without a document.
AcDbObjectId acedGetCurViewportObjectId();

/// The current UCS as the matrix that takes its coordinates to world ones. False for a null matrix.
bool acdbUcsMatrix(AcGeMatrix3d& matrix, AcDbDatabase* database = nullptr);
Acad::ErrorStatus acedGetCurrentUCS(AcGeMatrix3d& matrix);
/// eInvalidInput for a matrix whose axes aren't square to each other and of length 1.
Acad::ErrorStatus acedSetCurrentUCS(const AcGeMatrix3d& matrix);

/// Between frames, of a point or, with `vector`, of a displacement. `to` may be `from`.
bool acdbWcs2Ucs(const ads_real* from, ads_real* to, bool vector);
bool acdbUcs2Wcs(const ads_real* from, ads_real* to, bool vector);
/// The entity frame of a normal, by the arbitrary axis rule.
bool acdbWcs2Ecs(const ads_real* from, ads_real* to, const AcGeVector3d& normal, bool vector);
bool acdbEcs2Wcs(const ads_real* from, ads_real* to, const AcGeVector3d& normal, bool vector);
bool acdbUcs2Ecs(const ads_real* from, ads_real* to, const AcGeVector3d& normal, bool vector);
bool acdbEcs2Ucs(const ads_real* from, ads_real* to, const AcGeVector3d& normal, bool vector);

/// Loads a linetype, "*" for all, from a file of definitions into the linetype table (of the working database for
/// null). A linetype that is there already is left as it is: eDuplicateRecordName. eFileNotFound for a missing file,
/// eUndefinedLineType when the file hasn't the name, eBadLinetypeName for a definition that can't be read (its line
/// number goes to the terminal), eUndefineShapeName for one that needs a shape or a text.
Acad::ErrorStatus acdbLoadLineTypeFile(const wchar_t* linetype, const wchar_t* file, AcDbDatabase* database = nullptr);

/// The entries of a symbol table ("LAYER", "LTYPE", "STYLE", "DIMSTYLE", "BLOCK", "APPID", "VPORT", ...) one after the
/// other, from the first with `rewind` non-zero. A chain of group codes: 0, 2, 70 and those of the table. Null at the
/// end and for an unknown table. The caller frees it.
resbuf* acdbTblNext(const wchar_t* table, int rewind);
/// The entry of that name; with `setNext` acdbTblNext goes on behind it.
resbuf* acdbTblSearch(const wchar_t* table, const wchar_t* name, int setNext);
/// The last entity of the current space that isn't erased.
int acdbEntLast(ads_name entity);
/// The entity behind `entity` in its space, the first for null; RTERROR at the end.
int acdbEntNext(const ads_name entity, ads_name next);
int acdbEntDel(const ads_name entity);
/// The entity's groups as the exchange format tells them, -1 in front. Null on failure. The caller frees it.
resbuf* acdbEntGet(const ads_name entity);

namespace edhost {

/// The list last given to acedRetList, null when it was null. Owned by the host.
const resbuf* returnedList();

/// Whether a prompt has been cancelled since the running command began.
bool promptWasCancelled();

}  // namespace edhost
