#include "host/io/plot/Look.h"

#include <algorithm>

namespace plot {
namespace {

constexpr double kLeastWidth = 0.13;
constexpr double kGreatestWidth = 2.11;
constexpr double kDefaultWidth = 0.25;

const DashPattern* resolvePattern(AcDbObjectId linetype, const LayerStyle& layer, const Look& block,
                                  DrawingStyles& styles) {
  const LinetypeStyle* style = &styles.linetype(linetype);
  if (style->kind == LinetypeStyle::Kind::byLayer) style = &styles.linetype(layer.linetype);
  if (style->kind == LinetypeStyle::Kind::byBlock) return block.pattern;
  return style->pattern.empty() ? nullptr : &style->pattern;
}

}  // namespace

Look plainLook() {
  Look look;
  look.color.setColorIndex(AcCmColor::kACIforeground);
  return look;
}

Look resolve(const gi::TraitValues& traits, const Look& block, bool insideBlock, DrawingStyles& styles) {
  const LayerStyle* layer = &styles.layer(traits.layer);
  Look look;
  look.layer = traits.layer;
  if (insideBlock && (layer->isZero || traits.layer.isNull())) {
    look.layer = block.layer;
    layer = &styles.layer(block.layer);
  }
  look.visible = !layer->hidden;
  look.color = traits.color.isByBlock() ? block.color : traits.color.isByLayer() ? layer->color : traits.color;
  look.pattern = resolvePattern(traits.linetype, *layer, block, styles);
  look.linetypeScale = traits.linetypeScale;
  look.lineWeight = traits.lineWeight == AcDb::kLnWtByBlock   ? block.lineWeight
                    : traits.lineWeight == AcDb::kLnWtByLayer ? layer->lineWeight
                                                              : traits.lineWeight;
  return look;
}

double widthOf(AcDb::LineWeight weight) {
  if (weight < 0) return kDefaultWidth;
  return std::clamp(static_cast<int>(weight) / 100.0, kLeastWidth, kGreatestWidth);
}

Rgb paperColor(const AcCmColor& color, ColorPolicy policy) {
  if (policy == ColorPolicy::black) return {};
  const Rgb drawn = color.isByColor() ? Rgb{color.red(), color.green(), color.blue()} : aciColor(color.colorIndex());
  return policy == ColorPolicy::grey ? greyOf(drawn) : drawn;
}

}  // namespace plot
