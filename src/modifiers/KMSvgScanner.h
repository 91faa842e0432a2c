#pragma once

#include <QString>

/// Walks the text of an SVG attribute: numbers, letters, and the blanks and commas between them. A number beyond
/// any sensible drawing counts as none.
class KMSvgScanner
{
public:
    explicit KMSvgScanner(const QString &text)
        : m_text(text)
    {
    }

    void skipSeparators(); ///< blanks and commas
    bool atEnd();          ///< behind the separators
    bool atNumber();       ///< likewise
    QChar peek() const { return m_at < m_text.size() ? m_text[m_at] : QChar(); }
    void skip() { ++m_at; }
    QString takeWord(); ///< letters and hyphens, may be empty

    /// False, with the place unchanged, when no number comes next.
    bool takeNumber(double *number);
    bool takeFlag(bool *flag); ///< a single 0 or 1, as arcs have them; the next number may follow at once

private:
    int digitsFrom(int at) const; ///< how many follow

    QString m_text;
    int m_at = 0;
};
