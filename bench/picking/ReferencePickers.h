#pragma once

#include "OvSeismic/segy/OvGather.h"

/// Pickers of the textbooks, which look at one trace at a time: what the program's own picker is
/// held against. Written as published, with fixed windows and no tuning. Each gives a sample, or
/// NaN.
namespace ReferencePickers {

/// Largest ratio of short-term over long-term average of the energy, windows of 30 ms behind and
/// 200 ms ahead of a sample (Allen, R., 1978, Automatic earthquake recognition and timing from
/// single traces, Bull. Seism. Soc. Am. 68, 1521-1532).
double staLta(const float* samples, int count, double intervalMs);

/// Largest cubed product of the energy ratio of windows of 40 ms and the amplitude (Han, L., Wong,
/// J., Bancroft, J., 2009, Time picking and random noise reduction on microseismic data, CREWES
/// Research Report 21).
double modifiedEnergyRatio(const float* samples, int count, double intervalMs);

/// Least k log var(before) + (n - k) log var(after) up to the largest amplitude of the trace
/// (Maeda, N., 1985, A method for reading and checking phase times in auto-processing system of
/// seismic wave data, Zisin 38, 365-379).
double aic(const float* samples, int count, double intervalMs);

/// The same of the residuals of autoregressive models of order 4 of both ends of that stretch
/// (Sleeman, R., van Eck, T., 1999, Robust automatic P-phase picking, Phys. Earth Planet. Inter.
/// 113, 265-275).
double autoregressiveAic(const float* samples, int count, double intervalMs);

} // namespace ReferencePickers
