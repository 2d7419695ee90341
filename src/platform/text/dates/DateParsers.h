#pragma once

#include "platform/text/dates/DateLine.h"
#include "platform/text/dates/DatePiece.h"

#include <optional>

namespace quorvel {

enum class DateOrder { monthFirst, dayFirst };

/// Each reads one kind of date that begins at `index`, or nothing.
std::optional<DatePiece> parseNumericDate(const DateLine& line, int index, DateOrder order);
std::optional<DatePiece> parseNamedDate(const DateLine& line, int index);
std::optional<DatePiece> parseEasternDate(const DateLine& line, int index);
std::optional<DatePiece> parseRelativeDate(const DateLine& line, int index);
std::optional<DatePiece> parseWeekday(const DateLine& line, int index);
std::optional<DatePiece> parseTime(const DateLine& line, int index);

/// Of "1.–5. April" and "10–11 am" the index behind the sign or word between, or `index` itself.
int skipRangeSign(const DateLine& line, int index);

/// Whether that sign is a word.
bool isRangeWord(const DateLine& line, int index);

/// Reads a zone or an offset behind a time; returns its end.
int parseZone(const DateLine& line, int index, Moment& moment);

} // namespace quorvel
