#include <gdal.h>
#include <ogr_api.h>

#include "peer_files.h"

namespace peer {

std::size_t passWithGdal(const std::string& path) {
  static const bool registered = (GDALAllRegister(), true);
  static_cast<void>(registered);
  const GDALDatasetH file = GDALOpenEx(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, nullptr, nullptr, nullptr);
  if (file == nullptr) return 0;
  std::size_t count = 0;
  for (int i = 0; i < GDALDatasetGetLayerCount(file); ++i) {
    const OGRLayerH layer = GDALDatasetGetLayer(file, i);
    while (const OGRFeatureH feature = OGR_L_GetNextFeature(layer)) {
      ++count;
      OGR_F_Destroy(feature);
    }
  }
  GDALClose(file);
  return count;
}

}  // namespace peer
