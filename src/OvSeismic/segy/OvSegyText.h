#pragma once

#include "OvSeismic/segy/OvSegyTypes.h"

/// Textual headers: 3200 bytes, 40 lines of 80 characters, in EBCDIC or ASCII.
namespace OvSegyText {

constexpr int headerSize = 3200;
constexpr int lineLength = 80;

/// The encoding that explains more of the bytes; ASCII when nothing speaks for either.
OvTextEncoding encodingOf(const QByteArray& text);
/// One character a byte; control characters become blanks.
QString decode(const QByteArray& text, OvTextEncoding encoding);
QStringList lines(const QByteArray& text, OvTextEncoding encoding);
/// Whether 128 bytes are the label that files copied from tape may have in front: a storage unit
/// label of revision 1 or 2.
bool isTapeLabel(const QByteArray& label);
/// Whether an extended textual header is the one that ends a row of unknown length.
bool isEndStanza(const QByteArray& record);

} // namespace OvSegyText
