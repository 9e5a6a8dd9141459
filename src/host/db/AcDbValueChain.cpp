#include "host/db/AcDbValueChain.h"

#include <cstring>
#include <cwchar>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbMemoryDxfFiler.h"

namespace {

using Kind = AcDbDxfValueKind;

ads_binary copiedChunk(const ads_binary& from) {
  ads_binary chunk{from.clen, new char[std::size_t(from.clen > 0 ? from.clen : 1)]};
  if (from.clen > 0) std::memcpy(chunk.buf, from.buf, std::size_t(from.clen));
  return chunk;
}

void writeReference(AcDbDwgFiler& filer, int code, AcDbObjectId id) {
  // 330 to 369 are, ten by ten, the soft and hard pointers and the soft and hard owners; 390 is a hard pointer.
  switch (code / 10) {
    case 34:
    case 39:
      filer.writeHardPointerId(id);
      break;
    case 35:
      filer.writeSoftOwnershipId(id);
      break;
    case 36:
      filer.writeHardOwnershipId(id);
      break;
    default:
      filer.writeSoftPointerId(id);
  }
}

template <class T, Acad::ErrorStatus (AcDbDwgFiler::*Read)(T*)>
AcDbObjectId readId(AcDbDwgFiler& filer) {
  T id;
  (filer.*Read)(&id);
  return id;
}

AcDbObjectId readReference(AcDbDwgFiler& filer, int code) {
  switch (code / 10) {
    case 34:
    case 39:
      return readId<AcDbHardPointerId, &AcDbDwgFiler::readHardPointerId>(filer);
    case 35:
      return readId<AcDbSoftOwnershipId, &AcDbDwgFiler::readSoftOwnershipId>(filer);
    case 36:
      return readId<AcDbHardOwnershipId, &AcDbDwgFiler::readHardOwnershipId>(filer);
    default:
      return readId<AcDbSoftPointerId, &AcDbDwgFiler::readSoftPointerId>(filer);
  }
}

void writeLink(AcDbDwgFiler& filer, const resbuf& link) {
  const ads_u_val& value = link.resval;
  filer.writeInt16(link.restype);
  switch (acdbDxfValueKind(link.restype)) {
    case Kind::kText:
    case Kind::kHandle:  // in a chain a handle is its digits
      filer.writeString(value.rstring);
      break;
    case Kind::kPoint:
      filer.writePoint3d(AcGePoint3d(value.rpoint[0], value.rpoint[1], value.rpoint[2]));
      break;
    case Kind::kReal:
      filer.writeDouble(value.rreal);
      break;
    case Kind::kInt16:
      filer.writeInt16(value.rint);
      break;
    case Kind::kInt32:
      filer.writeInt32(value.rlong);
      break;
    case Kind::kInt64:
      filer.writeInt64(value.mnInt64);
      break;
    case Kind::kBinary:
      filer.writeBChunk(value.rbinary);
      break;
    case Kind::kObjectId:
      writeReference(filer, link.restype, AcDbObjectId().setFromOldId(value.rlname[0]));
      break;
    case Kind::kNone:
      break;
  }
}

void readLink(AcDbDwgFiler& filer, resbuf& link) {
  ads_u_val& value = link.resval;
  switch (acdbDxfValueKind(link.restype)) {
    case Kind::kText:
    case Kind::kHandle:
      filer.readString(&value.rstring);
      break;
    case Kind::kPoint: {
      AcGePoint3d p;
      filer.readPoint3d(&p);
      value.rpoint[0] = p.x, value.rpoint[1] = p.y, value.rpoint[2] = p.z;
      break;
    }
    case Kind::kReal:
      filer.readDouble(&value.rreal);
      break;
    case Kind::kInt16:
      filer.readInt16(&value.rint);
      break;
    case Kind::kInt32:
      filer.readInt32(&value.rlong);
      break;
    case Kind::kInt64:
      filer.readInt64(&value.mnInt64);
      break;
    case Kind::kBinary: {
      ads_binary chunk{};
      filer.readBChunk(&chunk);
      value.rbinary = copiedChunk(chunk);
      odrxFree(chunk.buf);
      break;
    }
    case Kind::kObjectId:
      value.rlname[0] = readReference(filer, link.restype).asOldId();
      break;
    case Kind::kNone:
      break;
  }
}

}  // namespace

resbuf* valuechain::copyLink(const resbuf& link) {
  resbuf* const made = acutNewRb(link.restype);
  if (made == nullptr) return nullptr;
  made->resval = link.resval;
  switch (acdbDxfValueKind(link.restype)) {
    case Kind::kText:
    case Kind::kHandle:
      made->resval.rstring = nullptr;
      acutNewString(link.resval.rstring != nullptr ? link.resval.rstring : L"", made->resval.rstring);
      break;
    case Kind::kBinary:
      made->resval.rbinary = copiedChunk(link.resval.rbinary);
      break;
    default:
      break;
  }
  return made;
}

resbuf* valuechain::copy(const resbuf* chain) {
  resbuf* first = nullptr;
  resbuf** tail = &first;
  for (; chain != nullptr; chain = chain->rbnext) {
    *tail = copyLink(*chain);
    if (*tail == nullptr) {
      acutRelRb(first);
      return nullptr;
    }
    tail = &(*tail)->rbnext;
  }
  return first;
}

bool valuechain::codesWithin(const resbuf* chain, int first, int last) {
  for (; chain != nullptr; chain = chain->rbnext) {
    if (chain->restype < first || chain->restype > last) return false;
    if (acdbDxfValueKind(chain->restype) == Kind::kNone) return false;
  }
  return true;
}

int valuechain::size(const resbuf* chain) {
  std::size_t bytes = 0;
  for (; chain != nullptr; chain = chain->rbnext) {
    switch (acdbDxfValueKind(chain->restype)) {
      case Kind::kText:
        bytes += 4 + (chain->resval.rstring != nullptr ? std::wcslen(chain->resval.rstring) : 0);
        break;
      case Kind::kPoint:
        bytes += 25;
        break;
      case Kind::kBinary:
        bytes += 2 + std::size_t(chain->resval.rbinary.clen);
        break;
      default:
        bytes += 9;
    }
  }
  return int(bytes);
}

Acad::ErrorStatus valuechain::write(AcDbDwgFiler& filer, const resbuf* chain) {
  Adesk::Int32 count = 0;
  for (const resbuf* link = chain; link != nullptr; link = link->rbnext) ++count;
  filer.writeInt32(count);
  for (; chain != nullptr; chain = chain->rbnext) writeLink(filer, *chain);
  return filer.filerStatus();
}

Acad::ErrorStatus valuechain::read(AcDbDwgFiler& filer, resbuf*& chain) {
  chain = nullptr;
  resbuf** tail = &chain;
  Adesk::Int32 count = 0;
  filer.readInt32(&count);
  for (Adesk::Int32 i = 0; i < count && filer.filerStatus() == Acad::eOk; ++i) {
    Adesk::Int16 code = 0;
    filer.readInt16(&code);
    *tail = acutNewRb(code);
    if (*tail == nullptr) {
      filer.setFilerStatus(Acad::eInvalidResBuf);
      break;
    }
    readLink(filer, **tail);
    tail = &(*tail)->rbnext;
  }
  if (filer.filerStatus() != Acad::eOk) {
    acutRelRb(chain);
    chain = nullptr;
  }
  return filer.filerStatus();
}

Acad::ErrorStatus valuechain::write(AcDbDxfFiler& filer, const resbuf* chain) {
  for (; chain != nullptr; chain = chain->rbnext) filer.writeResBuf(*chain);
  return filer.filerStatus();
}
