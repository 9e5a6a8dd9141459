#pragma once

#include <array>

#include "host/db/AcDbField.h"
#include "host/db/AcDbSymbolTable.h"

/// The real and the whole-number variables of a dimension style: X(accessor, setter, default, group code).
#define KR_DB_DIM_REALS(X)                \
  X(dimscale, setDimscale, 1.0, 40)       \
  X(dimasz, setDimasz, 2.5, 41)           \
  X(dimexo, setDimexo, 0.625, 42)         \
  X(dimdli, setDimdli, 3.75, 43)          \
  X(dimexe, setDimexe, 1.25, 44)          \
  X(dimrnd, setDimrnd, 0.0, 45)           \
  X(dimdle, setDimdle, 0.0, 46)           \
  X(dimtp, setDimtp, 0.0, 47)             \
  X(dimtm, setDimtm, 0.0, 48)             \
  X(dimtxt, setDimtxt, 2.5, 140)          \
  X(dimcen, setDimcen, 2.5, 141)          \
  X(dimtsz, setDimtsz, 0.0, 142)          \
  X(dimaltf, setDimaltf, 1.0 / 25.4, 143) \
  X(dimlfac, setDimlfac, 1.0, 144)        \
  X(dimtvp, setDimtvp, 0.0, 145)          \
  X(dimtfac, setDimtfac, 1.0, 146)        \
  X(dimgap, setDimgap, 0.625, 147)        \
  X(dimaltrnd, setDimaltrnd, 0.0, 148)
#define KR_DB_DIM_INTS(X)          \
  X(dimtol, setDimtol, 0, 71)      \
  X(dimlim, setDimlim, 0, 72)      \
  X(dimtih, setDimtih, 0, 73)      \
  X(dimtoh, setDimtoh, 0, 74)      \
  X(dimse1, setDimse1, 0, 75)      \
  X(dimse2, setDimse2, 0, 76)      \
  X(dimtad, setDimtad, 1, 77)      \
  X(dimzin, setDimzin, 8, 78)      \
  X(dimalt, setDimalt, 0, 170)     \
  X(dimaltd, setDimaltd, 3, 171)   \
  X(dimtofl, setDimtofl, 1, 172)   \
  X(dimsah, setDimsah, 0, 173)     \
  X(dimtix, setDimtix, 0, 174)     \
  X(dimsoxd, setDimsoxd, 0, 175)   \
  X(dimclrd, setDimclrd, 0, 176)   \
  X(dimclre, setDimclre, 0, 177)   \
  X(dimclrt, setDimclrt, 0, 178)   \
  X(dimadec, setDimadec, 0, 179)   \
  X(dimdec, setDimdec, 2, 271)     \
  X(dimlunit, setDimlunit, 2, 277) \
  X(dimaunit, setDimaunit, 0, 275) \
  X(dimjust, setDimjust, 0, 280)   \
  X(dimsd1, setDimsd1, 0, 281)     \
  X(dimsd2, setDimsd2, 0, 282)     \
  X(dimdsep, setDimdsep, 46, 278)  \
  X(dimatfit, setDimatfit, 3, 289) \
  X(dimazin, setDimazin, 0, 79)    \
  X(dimtdec, setDimtdec, 2, 272)   \
  X(dimaltu, setDimaltu, 2, 273)   \
  X(dimalttd, setDimalttd, 3, 274) \
  X(dimfrac, setDimfrac, 0, 276)   \
  X(dimtmove, setDimtmove, 0, 279) \
  X(dimtolj, setDimtolj, 0, 283)   \
  X(dimtzin, setDimtzin, 8, 284)   \
  X(dimaltz, setDimaltz, 0, 285)   \
  X(dimalttz, setDimalttz, 0, 286) \
  X(dimupt, setDimupt, 0, 288)     \
  X(dimlwd, setDimlwd, -2, 371)    \
  X(dimlwe, setDimlwe, -2, 372)

/// A dimension style. Lengths are in drawing units on paper, to be multiplied by dimscale.
class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord);
  AcDbDimStyleTableRecord() = default;

#define KR_DB_DIM_INDEX(get, set, value, code) get##Index,
  enum RealIndex { KR_DB_DIM_REALS(KR_DB_DIM_INDEX) kNumReals };
  enum IntIndex { KR_DB_DIM_INTS(KR_DB_DIM_INDEX) kNumInts };
#undef KR_DB_DIM_INDEX
#define KR_DB_DIM_REAL(get, set, value, code) \
  double get() const {                        \
    return real(get##Index);                  \
  }                                           \
  Acad::ErrorStatus set(double v) {           \
    return setReal(get##Index, v);            \
  }
  KR_DB_DIM_REALS(KR_DB_DIM_REAL)
#undef KR_DB_DIM_REAL
#define KR_DB_DIM_INT(get, set, value, code) \
  int get() const {                          \
    return whole(get##Index);                \
  }                                          \
  Acad::ErrorStatus set(int v) {             \
    return setWhole(get##Index, v);          \
  }
  KR_DB_DIM_INTS(KR_DB_DIM_INT)
#undef KR_DB_DIM_INT

  /// The style of the text; null for the drawing's Standard.
  AcDbObjectId dimtxsty() const;
  Acad::ErrorStatus setDimtxsty(AcDbObjectId id);
  /// The block of the arrow heads; null for the closed filled arrow.
  AcDbObjectId dimblk() const;
  Acad::ErrorStatus setDimblk(AcDbObjectId id);
  /// The text put before and behind the measure ("<>" stands for it): new texts that acutDelString frees.
  Acad::ErrorStatus dimpost(ACHAR*& text) const;
  Acad::ErrorStatus setDimpost(const ACHAR* text);
  Acad::ErrorStatus dimapost(ACHAR*& text) const;
  Acad::ErrorStatus setDimapost(const ACHAR* text);
  /// The block of a leader's arrow head, and of the first and the second arrow where they differ.
  AcDbObjectId dimldrblk() const;
  Acad::ErrorStatus setDimldrblk(AcDbObjectId id);
  AcDbObjectId dimblk1() const;
  Acad::ErrorStatus setDimblk1(AcDbObjectId id);
  AcDbObjectId dimblk2() const;
  Acad::ErrorStatus setDimblk2(AcDbObjectId id);

  // For readers and writers of files: by index, without checks.
  double realAt(RealIndex i) const {
    return reals_[i];
  }
  void setRealAsRead(RealIndex i, double value) {
    reals_[i] = value;
  }
  int wholeAt(IntIndex i) const {
    return ints_[i];
  }
  void setWholeAsRead(IntIndex i, int value) {
    ints_[i] = Adesk::Int16(value);
  }
  /// The texts and references, and a bit of unknown meaning that ends a DWG's record.
  struct Data {
    std::wstring dimpost;
    std::wstring dimapost;
    AcDbHardPointerId dimtxsty;
    AcDbHardPointerId dimldrblk;
    AcDbHardPointerId dimblk;
    AcDbHardPointerId dimblk1;
    AcDbHardPointerId dimblk2;
    bool unknown = false;
    Adesk::Int16 dxfFlags = 0;  ///< group 70 as read
    KR_DB_TIE(dimpost, dimapost, dimtxsty, dimldrblk, dimblk, dimblk1, dimblk2, unknown, dxfFlags)
  };
  KR_DB_DATA(Data)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Int16 dxfFlags() const override;
  void setDxfFlags(Adesk::Int16 flags) override;

 private:
  double real(RealIndex i) const {
    assertReadEnabled();
    return reals_[i];
  }
  Acad::ErrorStatus setReal(RealIndex i, double value);
  int whole(IntIndex i) const {
    assertReadEnabled();
    return ints_[i];
  }
  Acad::ErrorStatus setWhole(IntIndex i, int value);

#define KR_DB_DIM_DEFAULT(get, set, value, code) value,
  std::array<double, kNumReals> reals_{KR_DB_DIM_REALS(KR_DB_DIM_DEFAULT)};
  std::array<Adesk::Int16, kNumInts> ints_{KR_DB_DIM_INTS(KR_DB_DIM_DEFAULT)};
#undef KR_DB_DIM_DEFAULT
  Data data_;
};

class AcDbDimStyleTable : public AcDbSymbolTableOf<AcDbDimStyleTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDimStyleTable);
  /// The further references of a DWG's control object: styles in use, for readers and writers of files.
  std::vector<AcDbHardPointerId>& furtherAsRead() { return further_; }
  const std::vector<AcDbHardPointerId>& further() const { return further_; }

 private:
  std::vector<AcDbHardPointerId> further_;
};
using AcDbDimStyleTableIterator = AcDbDimStyleTable::Iterator;
