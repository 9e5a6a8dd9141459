#pragma once

/// \file
/// The enumerations that members share. The numbers are filed and must not change.

/// A view of a member. Also the index of its seven vertex lists.
enum KrVistas : int {
  Secao = 0,          ///< the section seen from the start of the bar
  Superior = 1,       ///< elevation from above
  Inferior = 2,       ///< elevation from below
  Esquerda = 3,       ///< elevation from the left
  Direita = 4,        ///< elevation from the right
  VistaCorrente = 5,  ///< as an argument the view shown now; as a stored value no view yet
  SecaoVerso = 6      ///< the section seen from the end of the bar: the outline mirrored
};

/// How many vertex lists a member holds, one for each value of KrVistas.
inline constexpr int kNumVistas = 7;

/// The structural role of a bar.
enum TipoBarra : int {
  Barra = 0,
  Montante = 1,
  Diagonal = 2,
  BanzoInferior = 3,
  BanzoSuperior = 4,
  Viga = 5,
  Pilar = 6,
  Gousset = 7,
  Chapa = 8,
  Terca = 9
};

/// How many structural roles there are.
inline constexpr int kNumTiposBarra = 10;

/// Whether an object is the master of a member or a copy of it made for another view.
enum KrObjectType : int { Objeto = 10, Vista = 11 };

/// The kinds of modifier, as bit flags.
enum ObjMods : int { ModFuro = 1, ModCorte = 2, ModRecorte = 4, ModSplit = 8 };

/// What the clipper does with a piece that is to go.
enum RecorteOutLinesOpts : int {
  RemoveOutLines = 0,  ///< removes it
  HideOutLines = 1,    ///< hides it
  OcultaOutLines = 2   ///< turns it into a hidden line
};

/// Format version of a member as filed; the newest is kKrObjectVersion.
enum Version : int {};

/// The format version that this library writes and the newest that it reads.
inline constexpr Version kKrObjectVersion = static_cast<Version>(9);

/// Tolerance of drawing distances in the generators and of scale comparison, in millimetres of real size.
inline constexpr double kDrawingTolerance = 0.01;
