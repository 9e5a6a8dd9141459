#pragma once

#include "Catalogue.h"
#include "ProfileClasses.h"

namespace kr {

/// A section of a catalogue as a class draws it.
struct CatalogueProfile {
  const ProfileClass* profileClass = nullptr;
  GivenParameters given;  ///< what the class is given, as a job would give it
};

/// Which class draws a row, and with which parameters: the standard's shape wherever the class can draw it.
CatalogueProfile profileOf(const Catalogue& catalogue, const CatalogueRow& row);

/// The same row as another class draws it: a compound one, of two of the row's sections. False when that class isn't
/// made of such sections. Area and weight are those of the whole.
bool compoundOf(const CatalogueProfile& single, const ProfileClass& compound, CatalogueProfile& profile);

/// Whether a row gives a section; the reason when not.
bool givesSection(const Catalogue& catalogue, const CatalogueRow& row, std::string& why);

}  // namespace kr
