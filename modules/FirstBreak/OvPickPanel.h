#pragma once

#include "OvSeismic/picking/OvPickParameters.h"
#include "OvTarnpick/gadget/OvPickFBDefineWidget.h"

/// The ten fields of the parameter panel, which knows nothing of picking, as the picker's.
namespace OvPickPanel {

OvPickParameters parametersOf(const OvPickFBDefine& define);
OvPickFBDefine defineOf(const OvPickParameters& parameters);
/// Object name of the panel's field for a parameter, by the name in text input; empty for others.
QString fieldOf(const QString& parameter);

} // namespace OvPickPanel
