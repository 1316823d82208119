#pragma once
// Locale-dependent time and date formatting, with a fixed English default.

#include <string>
#include <string_view>

#include "core/ZoneTime.h"

namespace zonara {

enum DateFlags : unsigned { DateShort = 1, DateLong = 2 };

class LocaleFormat {
  public:
    virtual ~LocaleFormat() = default;
    // Time pictures: h hh H HH m mm s ss t tt and 'quoted' literals.
    virtual std::string formatTime(const ZoneTime& t, std::string_view picture) const = 0;
    // Empty when the date cannot be formatted (a weekday outside [0, 6]).
    virtual std::string formatDate(const ZoneTime& t, unsigned flags) const = 0;
    virtual std::string_view amDesignator() const = 0;
    virtual std::string_view pmDesignator() const = 0;
};

// English names, short date M/d/yyyy, long date dddd, MMMM dd, yyyy.
class EnglishLocale final : public LocaleFormat {
  public:
    std::string formatTime(const ZoneTime& t, std::string_view picture) const override;
    std::string formatDate(const ZoneTime& t, unsigned flags) const override;
    std::string_view amDesignator() const override { return "AM"; }
    std::string_view pmDesignator() const override { return "PM"; }
};

const LocaleFormat& englishLocale();

// Expands a date picture: d dd ddd dddd M MM MMM MMMM y yy yyyy, 'literals'.
std::string expandDatePicture(const ZoneTime& t, std::string_view picture);
std::string expandTimePicture(const ZoneTime& t, std::string_view picture, std::string_view am,
                              std::string_view pm);

std::string formatTime12(const ZoneTime& t, const LocaleFormat& locale = englishLocale());
std::string formatTimeWith(const ZoneTime& t, std::string_view picture,
                           const LocaleFormat& locale = englishLocale());
std::string formatAmPm(const ZoneTime& t, const LocaleFormat& locale = englishLocale());
// A date that cannot be formatted is tried once more with weekday 0.
std::string formatDate(const ZoneTime& t, unsigned flags,
                       const LocaleFormat& locale = englishLocale());
// The clock's time text: "HH':'mm" with the 24-hour setting, else formatTime12.
std::string formatClockTime(const ZoneTime& t, bool use24Hour,
                            const LocaleFormat& locale = englishLocale());

} // namespace zonara
