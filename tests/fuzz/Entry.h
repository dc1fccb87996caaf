#pragma once

#include <QByteArray>

/// What a fuzzing run calls with bytes of its own, and a test with those of real and generated
/// files. Each returns when the bytes were refused or read; what must not be ends the program with
/// a message. The bytes are put into a file first, as the program only takes files.
namespace Fuzz {

/// Opens the bytes as a SEG-Y file and does with it what the program does with one.
void segy(const QByteArray& bytes);
/// Opens the bytes as a first-break file, reads and writes.
void firstBreaks(const QByteArray& bytes);
/// Takes the bytes for the positions of traces that were kept beside an index.
void locator(const QByteArray& bytes);

/// Takes the bytes for a kept header index.
void index(const QByteArray& bytes);

/// Bytes that are taken, for a run or a test to start from.
QByteArray firstBreaksSeed();
QByteArray locatorSeed();
QByteArray indexSeed();

using Entry = void (*)(const QByteArray&);

} // namespace Fuzz
