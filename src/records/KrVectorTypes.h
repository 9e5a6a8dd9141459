#pragma once

#include <cstdint>

/// What a drawn element is. The numbers are filed.
enum KrVectorType : std::int32_t {
  KR_VT_EIXO = 0,          ///< axis line of the bar
  KR_VT_LINHA_OCULTA = 1,  ///< hidden line
  KR_VT_LINHA = 2,         ///< visible line
  KR_VT_ARCO = 3,          ///< visible arc through start, mid and end
  KR_VT_CIRCULO = 4,       ///< full circle about the mid point; its radius stands in the length and in the radius
  KR_VT_FURO = 5,          ///< a hole seen face on, about the mid point
  KR_VT_FURO_EIXO = 6,     ///< centre line of a hole
  KR_VT_FURO_LINHA = 7,    ///< a hole seen edge on; its radius is half the diameter
  KR_VT_REFERENCIA = 8,    ///< reference line of an elevation, exempt from cuts
  KR_VT_ARCO_OCULTO = 9    ///< an arc that a notch has hidden
};

/// The role of a drawn element. The numbers are filed.
enum KrVectorFlag : std::int32_t {
  KR_VF_FURO_REDONDO = 0,  ///< round hole
  KR_VF_FURO_OBLONGO = 1,  ///< oblong hole: two half circles and two lines along the direction
  KR_VF_ARESTA = 2,        ///< edge of the view's outer contour
  KR_VF_PADRAO = 3,        ///< ordinary element, also an interior line
  KR_VF_LIMITE = 4         ///< break line of the visual limits
};

/// Which kind of modifier generated a drawn element, and so what its `IndexFur` means. The numbers are filed.
enum KrVectorTypeEx : std::int32_t {
  KR_VTX_NENHUM = 0,  ///< the profile itself; `IndexFur` is -1
  KR_VTX_FURO = 1,    ///< a hole; `IndexFur` is its index among the holes
  KR_VTX_CORTE = 2,   ///< a cut; `IndexFur` is its index among the cuts
  KR_VTX_RECORTE =
      3  ///< a notch; `IndexFur` holds its index in the low half and the index of its list in the high half
};
