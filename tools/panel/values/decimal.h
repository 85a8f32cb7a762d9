/// Decimal numbers of any length without rounding: what people type, scales and offsets.
#ifndef KX_PANEL_VALUES_DECIMAL_H
#define KX_PANEL_VALUES_DECIMAL_H

#include "addresses/export.h"

#include <QtCore/QString>

#include <string>

namespace kx
{

class KXRUNTIME_EXPORT Decimal
{
public:
    Decimal() = default;
    explicit Decimal(qint64 number);
    static Decimal ofUnsigned(quint64 number);

    /// Parses [-|+]DIGITS[.DIGITS][e[-|+]DIGITS], at most 4000 characters and an exponent of three
    /// digits. False for anything else; `*number` is then untouched.
    static bool parse(const QString& text, Decimal* number);

    bool isZero() const { return m_digits.empty(); }
    bool isNegative() const { return m_negative; }
    /// Digits behind the point: 2 of 12.05, 0 of 1200.
    int places() const { return m_exponent < 0 ? -m_exponent : 0; }
    /// Digits without zeros at either end: 3 of 12.5 and of 0.000125, 2 of 12000.
    int significantDigits() const { return static_cast<int>(m_digits.size()); }
    /// The power of ten of the first digit: 1 of 12.5, -3 of 0.002; 0 of zero.
    int magnitude() const;

    Decimal negated() const;
    Decimal absolute() const { return m_negative ? negated() : *this; }
    Decimal plus(const Decimal& other) const;
    Decimal minus(const Decimal& other) const { return plus(other.negated()); }
    Decimal times(const Decimal& other) const;
    Decimal timesPowerOfTen(int power) const;
    /// Cut, not rounded, behind `places` digits of the fraction; negative: before the point.
    /// @param divisor not zero, at most 9 significant digits
    /// @param isCut whether something was cut off; may be null
    Decimal dividedBy(const Decimal& divisor, int places, bool* isCut) const;
    /// Rounded to that many places, halves away from zero.
    Decimal rounded(int places) const;
    /// Negative, 0 or positive: this is below, equal to or above the other.
    int compare(const Decimal& other) const;

    /// "-12.5"; with an exponent, "1e+30", where more than 30 zeros would be needed.
    QString text() const { return text(0); }
    /// The same with at least that many digits behind the point: "12.50".
    QString text(int places) const;

    /// The number when it is whole and fits; else false.
    bool toUnsigned(quint64* number) const;
    bool toSigned(qint64* number) const;
    /// The nearest; infinite beyond the highest.
    double toDouble() const;
    float toFloat() const;

private:
    Decimal(bool negative, const std::string& digits, int exponent);
    std::string alignedDigits(int exponent) const;
    std::string scientific() const;

    bool m_negative = false;
    std::string m_digits; ///< no zeros at either end; empty: 0
    int m_exponent = 0;   ///< of ten, of the last digit
};

} // namespace kx

#endif
