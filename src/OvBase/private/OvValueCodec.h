#pragma once

#include "OvBase/OvBaseExport.h"

#include <QString>
#include <QVariant>

/// Variants as text (JSON) that keeps their types, for the value tables.
namespace OvValueCodec {

/// An empty string when the type (or one inside a list or map) cannot be stored.
OVBASE_EXPORT QString encode(const QVariant& value);
/// An invalid value for text that is none of encode()'s.
OVBASE_EXPORT QVariant decode(const QString& text);

} // namespace OvValueCodec
