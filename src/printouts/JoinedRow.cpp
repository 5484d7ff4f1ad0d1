#include "printouts/JoinedRow.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Goes through an array of texts, numbers and nulls, and takes the escapes out of the texts where they stand.
class Lector {
  public:
    explicit Lector(QString& json) : m_inicio(json.data()), m_lugar(m_inicio), m_fin(m_inicio + json.size()) {}

    [[nodiscard]] bool HayOtro();
    /// Where the value lies; nothing for null.
    [[nodiscard]] QStringView Valor() { return *m_lugar == u'"' ? Texto() : Palabra(); }
    [[nodiscard]] int LugarDe(QStringView valor) const { return static_cast<int>(valor.data() - m_inicio); }

  private:
    [[nodiscard]] QStringView Texto();
    [[nodiscard]] QStringView Palabra();
    [[nodiscard]] QChar Escapado();

    QChar* m_inicio;
    QChar* m_lugar;
    QChar* m_fin;
};

bool Lector::HayOtro() {
    while (m_lugar < m_fin && (*m_lugar == u'[' || *m_lugar == u',' || *m_lugar == u' '))
        ++m_lugar;
    return m_lugar < m_fin && *m_lugar != u']';
}

QStringView Lector::Texto() {
    const QChar* const desde = ++m_lugar;
    while (m_lugar < m_fin && *m_lugar != u'"' && *m_lugar != u'\\')
        ++m_lugar;
    QChar* hasta = m_lugar;
    while (m_lugar < m_fin && *m_lugar != u'"') {
        const QChar letra = *m_lugar == u'\\' ? Escapado() : *m_lugar++;
        *hasta++ = letra;
    }
    ++m_lugar;
    return {desde, hasta};
}

QChar Lector::Escapado() {
    constexpr qsizetype kCifras = 4;
    const QChar marca = m_fin - m_lugar > 1 ? m_lugar[1] : QChar(u'\\');
    m_lugar += std::min<qsizetype>(2, m_fin - m_lugar);
    switch (marca.unicode()) {
    case u'b': return u'\b';
    case u'f': return u'\f';
    case u'n': return u'\n';
    case u'r': return u'\r';
    case u't': return u'\t';
    case u'u': break;
    default: return marca;
    }
    const QStringView cifras(m_lugar, std::min<qsizetype>(kCifras, m_fin - m_lugar));
    m_lugar += cifras.size();
    return QChar(cifras.toUShort(nullptr, 16));
}

QStringView Lector::Palabra() {
    const QChar* const desde = m_lugar;
    while (m_lugar < m_fin && *m_lugar != u',' && *m_lugar != u']')
        ++m_lugar;
    return *desde == u'n' ? QStringView(desde, qsizetype(0)) : QStringView(desde, m_lugar);
}

} // namespace

FilaUnida::FilaUnida(const QByteArray& json) : m_texto(QString::fromUtf8(json)) {
    Lector lector(m_texto);
    for (size_t i = 0; i < kCampos && lector.HayOtro(); ++i) {
        const QStringView valor = lector.Valor();
        m_campos[i] = {lector.LugarDe(valor), static_cast<int>(valor.size())};
    }
}

} // namespace xa518
