#include "panel/values/decimal.h"

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>

namespace kx
{

namespace
{

// A double times 1e-999 plus 1e999 has not as many digits.
const int LONGEST_TEXT = 4000;
const int MOST_ZEROS = 30;

/// Of digits without zeros in front.
bool isShorterOrLower(const std::string& one, const std::string& other)
{
    return one.size() != other.size() ? one.size() < other.size() : one < other;
}

std::string withoutLeadingZeros(const std::string& digits)
{
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

std::string sum(const std::string& longer, const std::string& shorter)
{
    std::string result = '0' + longer;
    int carry = 0;
    for (std::size_t i = 0; i < result.size(); ++i) {
        char& digit = result[result.size() - 1 - i];
        const int added = i < shorter.size() ? shorter[shorter.size() - 1 - i] - '0' : 0;
        const int total = digit - '0' + added + carry;
        digit = static_cast<char>('0' + total % 10);
        carry = total / 10;
    }
    return result;
}

/// @param higher not below `lower`
std::string difference(const std::string& higher, const std::string& lower)
{
    std::string result = higher;
    int borrowed = 0;
    for (std::size_t i = 0; i < result.size(); ++i) {
        char& digit = result[result.size() - 1 - i];
        const int taken = i < lower.size() ? lower[lower.size() - 1 - i] - '0' : 0;
        const int left = digit - '0' - taken - borrowed;
        borrowed = left < 0 ? 1 : 0;
        digit = static_cast<char>('0' + left + 10 * borrowed);
    }
    return result;
}

/// @param isSmall below 1: what does not fit is then next to 0, else beyond the highest
template <typename Number>
Number nearest(const std::string& text, bool isSmall)
{
    Number number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc::result_out_of_range)
        return number;
    const Number magnitude = isSmall ? Number(0) : std::numeric_limits<Number>::infinity();
    return text.front() == '-' ? -magnitude : magnitude;
}

} // namespace

Decimal::Decimal(bool negative, const std::string& digits, int exponent)
    : m_negative(negative), m_digits(withoutLeadingZeros(digits)), m_exponent(exponent)
{
    const std::size_t end = m_digits.find_last_not_of('0') + 1; // 0 when there are none
    m_exponent += static_cast<int>(m_digits.size() - end);
    m_digits.resize(end);
    if (m_digits.empty()) {
        m_negative = false;
        m_exponent = 0;
    }
}

Decimal::Decimal(qint64 number)
{
    const quint64 bits = static_cast<quint64>(number);
    *this = Decimal(number < 0, std::to_string(number < 0 ? 0 - bits : bits), 0);
}

Decimal Decimal::ofUnsigned(quint64 number)
{
    return Decimal(false, std::to_string(number), 0);
}

bool Decimal::parse(const QString& text, Decimal* number)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A([-+]?)([0-9]+)(?:\\.([0-9]+))?(?:[eE]([-+]?[0-9]{1,3}))?\\z"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (text.size() > LONGEST_TEXT || !match.hasMatch())
        return false;
    const QString fraction = match.captured(3);
    *number = Decimal(match.captured(1) == QLatin1String("-"),
                      (match.captured(2) + fraction).toStdString(),
                      match.captured(4).toInt() - static_cast<int>(fraction.size()));
    return true;
}

int Decimal::magnitude() const
{
    return isZero() ? 0 : significantDigits() - 1 + m_exponent;
}

Decimal Decimal::negated() const
{
    return Decimal(!m_negative, m_digits, m_exponent);
}

std::string Decimal::alignedDigits(int exponent) const
{
    return isZero() ? m_digits
                    : m_digits + std::string(static_cast<std::size_t>(m_exponent - exponent), '0');
}

Decimal Decimal::plus(const Decimal& other) const
{
    const int exponent = std::min(m_exponent, other.m_exponent);
    const std::string mine = alignedDigits(exponent);
    const std::string others = other.alignedDigits(exponent);
    const bool isLower = isShorterOrLower(mine, others);
    const std::string& higher = isLower ? others : mine;
    const std::string& lower = isLower ? mine : others;
    const bool isNegative = isLower ? other.m_negative : m_negative;
    return m_negative == other.m_negative
               ? Decimal(isNegative, sum(higher, lower), exponent)
               : Decimal(isNegative, difference(higher, lower), exponent);
}

Decimal Decimal::times(const Decimal& other) const
{
    std::string product(m_digits.size() + other.m_digits.size(), '0');
    for (std::size_t i = m_digits.size(); i-- > 0;) {
        int carry = 0;
        for (std::size_t j = other.m_digits.size(); j-- > 0;) {
            char& digit = product[i + j + 1];
            const int total = digit - '0' + (m_digits[i] - '0') * (other.m_digits[j] - '0') + carry;
            digit = static_cast<char>('0' + total % 10);
            carry = total / 10;
        }
        product[i] = static_cast<char>('0' + carry);
    }
    return Decimal(m_negative != other.m_negative, product, m_exponent + other.m_exponent);
}

Decimal Decimal::timesPowerOfTen(int power) const
{
    return Decimal(m_negative, m_digits, m_exponent + power);
}

Decimal Decimal::dividedBy(const Decimal& divisor, int places, bool* isCut) const
{
    const quint64 by = std::strtoull(divisor.m_digits.c_str(), nullptr, 10);
    // The quotient's last digit is that of 10^-places.
    const int zeros = m_exponent - divisor.m_exponent + places;
    std::string dividend = isZero() ? "0" : m_digits;
    quint64 rest = 0;
    if (zeros > 0)
        dividend.append(static_cast<std::size_t>(zeros), '0');
    std::string quotient;
    for (const char digit : dividend) {
        rest = rest * 10 + static_cast<quint64>(digit - '0');
        quotient += static_cast<char>('0' + rest / by);
        rest %= by;
    }
    bool cut = rest != 0;
    for (int i = zeros; i < 0 && !quotient.empty(); ++i) {
        cut = cut || quotient.back() != '0';
        quotient.pop_back();
    }
    if (isCut)
        *isCut = cut;
    return Decimal(m_negative != divisor.m_negative, quotient, -places);
}

Decimal Decimal::rounded(int places) const
{
    const Decimal half(m_negative, "5", -places - 1);
    return plus(half).dividedBy(Decimal(1), places, nullptr);
}

int Decimal::compare(const Decimal& other) const
{
    const Decimal distance = minus(other);
    return distance.isNegative() ? -1 : distance.isZero() ? 0 : 1;
}

std::string Decimal::scientific() const
{
    return (m_negative ? "-" : "") + (isZero() ? "0" : m_digits) + 'e' + std::to_string(m_exponent);
}

QString Decimal::text(int places) const
{
    if (m_exponent > MOST_ZEROS || magnitude() < -MOST_ZEROS)
        return QString::fromStdString(scientific());
    const int shown = std::max(places, this->places());
    std::string digits =
        isZero() ? std::string(static_cast<std::size_t>(shown), '0') : alignedDigits(-shown);
    if (digits.size() <= static_cast<std::size_t>(shown))
        digits.insert(0, static_cast<std::size_t>(shown) + 1 - digits.size(), '0');
    if (shown > 0)
        digits.insert(digits.size() - static_cast<std::size_t>(shown), ".");
    return QString::fromStdString((m_negative ? "-" : "") + digits);
}

bool Decimal::toUnsigned(quint64* number) const
{
    if (m_negative || m_exponent < 0 || magnitude() > 19)
        return false;
    bool fits = false;
    const quint64 value =
        QString::fromStdString(isZero() ? "0" : alignedDigits(0)).toULongLong(&fits);
    if (fits)
        *number = value;
    return fits;
}

bool Decimal::toSigned(qint64* number) const
{
    quint64 size = 0;
    const quint64 highest = static_cast<quint64>(std::numeric_limits<qint64>::max());
    if (!absolute().toUnsigned(&size) || size > highest + (m_negative ? 1 : 0))
        return false;
    *number = static_cast<qint64>(m_negative ? 0 - size : size);
    return true;
}

double Decimal::toDouble() const
{
    return nearest<double>(scientific(), magnitude() < 0);
}

float Decimal::toFloat() const
{
    return nearest<float>(scientific(), magnitude() < 0);
}

} // namespace kx
