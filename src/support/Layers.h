#pragma once

#include "host/db/db.h"

/// The mapping of the system's layers to the user's, read from two files of the install folder.
///
/// The list of system layers has one name a line. The user's file has one record a line, in the same order, its fields
/// parted by ';': name; colour index; linetype; off; frozen; frozen by default in new viewports; locked. It ends in
/// "$IDKRLAYERFILE" with nothing behind. docs/file-formats.md tells both in full.
///
/// Names hold at most 32 characters; longer ones are cut. A line is read in pieces of at most 99 characters, each of
/// which counts as a line.
///
/// A copy shares the arrays of its source and mustn't outlive it.
class ListaLayers {
 public:
  /// Reads the list `sistema` and the mapping `usuario2`; `usuario1` is kept for comparison (layerCfg). Both user files
  /// must end in the mark; the list's own mark isn't tested. What goes wrong is told on the command line, and estado()
  /// stays RTERROR. A mark that isn't there is told by nothing else.
  ListaLayers(const wchar_t* sistema, const wchar_t* usuario1, const wchar_t* usuario2);
  ListaLayers(const ListaLayers&) = default;
  ListaLayers& operator=(const ListaLayers&) = default;
  virtual ~ListaLayers();

  /// The number of layers.
  int MaxLayers() const { return maxLayers_; }
  /// RTNORM for a list that is whole, else RTERROR.
  int estado() const { return estado_; }

  /// Of layer i, 0 up to below MaxLayers(). Entries that the user's file didn't reach are empty and 0.
  int cor(int i) const { return cor_[i]; }
  bool bloqueado(int i) const { return bloqueado_[i] != 0; }
  bool desligado(int i) const { return desligado_[i] != 0; }
  bool congelado(int i) const { return congelado_[i] != 0; }
  bool vpdflt(int i) const { return vpdflt_[i] != 0; }
  /// The texts also have an entry MaxLayers(): the end mark "KRLAYEREND".
  const wchar_t* tipoLinha(int i) const { return tipoLinha_[i]; }
  const wchar_t* layerUsuario(int i) const { return layerUsuario_[i]; }
  const wchar_t* layerSistema(int i) const { return layerSistema_[i]; }
  const wchar_t* layerCfg(int i) const { return layerCfg_[i]; }

  /// The first layer of that system name, without regard to case; -1 when there is none up to the first empty entry.
  int find(const wchar_t* nome) const;

  /// Writes the records and the mark. 1, or 0 when the file can't be written. Records end in a carriage return and the
  /// line end of text mode: two carriage returns in the file, which reading takes for one line's end.
  int Save(const wchar_t* path) const;

 private:
  static constexpr int kNameRoom = 33;
  using Name = wchar_t[kNameRoom];

  bool carregue(const wchar_t* sistema, const wchar_t* usuario1, const wchar_t* usuario2);
  void aloque();

  int* cor_ = nullptr;
  int estado_;
  unsigned char* bloqueado_ = nullptr;
  unsigned char* desligado_ = nullptr;
  unsigned char* congelado_ = nullptr;
  unsigned char* vpdflt_ = nullptr;
  Name* tipoLinha_ = nullptr;
  Name* layerUsuario_ = nullptr;
  Name* layerSistema_ = nullptr;
  Name* layerCfg_ = nullptr;
  int maxLayers_ = 0;
};

/// Forgets the module's list without deleting it.
void UsrLayerInit();
/// Loads the module's list from the install folder, unless there is one already, valid or not. Its estado().
int UsrLayerMain();
/// Deletes the module's list.
void UsrLayerExit();
/// The module's list; null until UsrLayerMain has made it.
const ListaLayers* UsrLayerList();
/// How often the list has been loaded or dropped: while it stays, a layer's name goes on meaning the same.
unsigned UsrLayerChanges();

/// The user's name for a system layer, which is made in the working database when it isn't there: an erased layer of
/// that name comes back as it was. A name that is in no list is its own, and is made with colour 255, continuous.
/// Without a valid list the result is `nome` itself and nothing is made; without a working database it is "0".
/// Otherwise it stands in a buffer that the next call overwrites.
const wchar_t* KrLayerToUsr(const wchar_t* nome);
/// The same.
const wchar_t* KrLoadKrLayer(const wchar_t* nome);
/// Copies the result of KrLayerToUsr to `saida`; 1, or 0 for a null name.
int KrUsrLayer(const wchar_t* nome, wchar_t* saida);

/// Makes a layer in the working database unless it has one of that name. A linetype that can't be found or loaded
/// leaves the default one. RTERROR without a database or when its table can't be opened; otherwise RTNORM, even when
/// the table refuses the layer.
int krCriaLayer(const wchar_t* nome, int cor, const wchar_t* tipoLinha, int desligado, int congelado, int vpdflt,
                int bloqueado);

/// The linetype of the working database, loaded from the install folder's file when it is missing. eOk with the id, or
/// the status of what failed, with `id` as it was.
Acad::ErrorStatus krLinetypeIdFromString(const wchar_t* nome, AcDbObjectId& id);
