#pragma once

#include "host/db/AcDbField.h"
#include "host/db/AcDbObject.h"
#include "host/ge/ge.h"

/// How something is plotted. Lengths of the paper in millimetres.
class AcDbPlotSettings : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbPlotSettings);
  enum PlotPaperUnits : int { kInches = 0, kMillimeters = 1, kPixels = 2 };
  enum PlotRotation : int { k0degrees = 0, k90degrees = 1, k180degrees = 2, k270degrees = 3 };
  enum PlotType : int { kDisplay = 0, kExtents = 1, kLimits = 2, kView = 3, kWindow = 4, kLayout = 5 };
  /// Bits of the plot flags, as in group 70.
  enum Flag : Adesk::Int16 {
    kPlotViewportBorders = 1,
    kShowPlotStyles = 2,
    kPlotCentered = 4,
    kPlotHidden = 8,
    kUseStandardScale = 16,
    kPlotPlotStyles = 32,
    kScaleLineweights = 64,
    kPrintLineweights = 128,
    kDrawViewportsFirst = 512,
    kModelType = 1024
  };
  struct PlotData {
    std::wstring pageSetup;
    std::wstring device = L"none_device";
    Adesk::Int16 flags = 688;
    double leftMargin = 0.0;
    double bottomMargin = 0.0;
    double rightMargin = 0.0;
    double topMargin = 0.0;
    double paperWidth = 0.0;
    double paperHeight = 0.0;
    std::wstring paperSize;
    double originX = 0.0;
    double originY = 0.0;
    Adesk::Int16 paperUnits = kMillimeters;
    Adesk::Int16 rotation = k0degrees;
    Adesk::Int16 plotType = kLayout;
    AcGePoint2d windowMin;
    AcGePoint2d windowMax;
    std::wstring plotView;
    double scaleNumerator = 1.0;
    double scaleDenominator = 1.0;
    std::wstring styleSheet;
    Adesk::Int16 standardScaleType = 16;
    double standardScale = 1.0;
    AcGePoint2d paperImageOrigin;
    KR_DB_TIE(pageSetup, device, flags, leftMargin, bottomMargin, rightMargin, topMargin, paperWidth, paperHeight,
              paperSize, originX, originY, paperUnits, rotation, plotType, windowMin, windowMax, plotView,
              scaleNumerator, scaleDenominator, styleSheet, standardScaleType, standardScale, paperImageOrigin)
  };
  AcDbPlotSettings() = default;
  const PlotData& plotData() const { return plot_; }
  PlotData& plotDataAsRead() { return plot_; }

  KR_DB_TEXT(plotSettingsNameConst, setPlotSettingsName, plot_.pageSetup)
  KR_DB_TEXT(plotCfgNameConst, setPlotCfgName, plot_.device)
  KR_DB_TEXT(canonicalMediaNameConst, setCanonicalMediaName, plot_.paperSize)
  KR_DB_GET(bool, modelType, (plot_.flags & kModelType) != 0)
  KR_DB_GET(PlotType, plotType, PlotType(plot_.plotType))
  KR_DB_GET(PlotRotation, plotRotation, PlotRotation(plot_.rotation))
  KR_DB_GET(PlotPaperUnits, plotPaperUnits, PlotPaperUnits(plot_.paperUnits))
  void getPlotPaperSize(double& width, double& height) const;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  PlotData plot_;
};

/// A sheet: the model's, or one of paper space with the block that holds what is on it.
class AcDbLayout : public AcDbPlotSettings {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLayout);
  struct LayoutData {
    std::wstring name;
    Adesk::Int32 tabOrder = 0;
    Adesk::Int16 flags = 1;
    AcGePoint3d ucsOrigin;
    AcGePoint2d limMin;
    AcGePoint2d limMax{12.0, 9.0};
    AcGePoint3d insBase;
    AcGeVector3d ucsXAxis = AcGeVector3d::kXAxis;
    AcGeVector3d ucsYAxis = AcGeVector3d::kYAxis;
    double elevation = 0.0;
    Adesk::Int16 orthoType = 0;
    AcGePoint3d extMin{1e20, 1e20, 1e20};
    AcGePoint3d extMax{-1e20, -1e20, -1e20};
    AcDbSoftPointerId block;
    AcDbSoftPointerId lastActiveViewport;
    AcDbHardPointerId baseUcs;
    AcDbHardPointerId namedUcs;
    KR_DB_TIE(name, tabOrder, flags, ucsOrigin, limMin, limMax, insBase, ucsXAxis, ucsYAxis, elevation, orthoType,
              extMin, extMax, block, lastActiveViewport, baseUcs, namedUcs)
  };
  AcDbLayout() = default;
  const LayoutData& layoutData() const { return layout_; }
  LayoutData& layoutDataAsRead() { return layout_; }

  KR_DB_TEXT(getLayoutNameConst, setLayoutName, layout_.name)
  Acad::ErrorStatus getLayoutName(const ACHAR*& name) const;
  KR_DB_ID(getBlockTableRecordId, setBlockTableRecordId, layout_.block)
  KR_DB_GET(int, getTabOrder, layout_.tabOrder)
  void setTabOrder(int order);

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  LayoutData layout_;
};
