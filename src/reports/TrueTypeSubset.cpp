#include "reports/TrueTypeSubset.h"

#include <QRawFont>
#include <QtEndian>

#include <algorithm>
#include <utility>

namespace xa518 {

namespace {

/// Numbers of the format are big-endian; one that lies behind the end of a table reads as 0.
template <typename Numero>
Numero Lee(const QByteArray& tabla, qsizetype lugar) {
    const bool esta = lugar >= 0 && lugar + qsizetype(sizeof(Numero)) <= tabla.size();
    return esta ? qFromBigEndian<Numero>(tabla.constData() + lugar) : Numero(0);
}

template <typename Numero>
void Escribe(QByteArray& tabla, qsizetype lugar, Numero valor) {
    if (lugar >= 0 && lugar + qsizetype(sizeof(Numero)) <= tabla.size())
        qToBigEndian(valor, tabla.data() + lugar);
}

template <typename Numero>
void Agrega(QByteArray& tabla, Numero valor) {
    tabla.resize(tabla.size() + qsizetype(sizeof(Numero)));
    Escribe(tabla, tabla.size() - qsizetype(sizeof(Numero)), valor);
}

void Empareja(QByteArray& tabla) {
    tabla.append((4 - tabla.size() % 4) % 4, '\0');
}

// Places in the tables, by their names in the format.
constexpr qsizetype kIndexToLocFormat = 50;
constexpr qsizetype kChecksumAdjustment = 8;
constexpr qsizetype kNumberOfHMetrics = 34;
constexpr qsizetype kNumGlyphs = 4;
constexpr qsizetype kFinCajaDeGlifo = 10; ///< number of contours and bounding box

/// The tables of a letter that drawing needs, by their names in the format.
struct Tablas {
    QByteArray glyf;
    QByteArray head;
    QByteArray hhea;
    QByteArray hmtx;
    QByteArray loca;
    QByteArray maxp;
};

class Subconjunto {
  public:
    Subconjunto(const QRawFont& letra, std::vector<quint32> glifos)
        : m_original{letra.fontTable("glyf"), letra.fontTable("head"), letra.fontTable("hhea"),
                     letra.fontTable("hmtx"), letra.fontTable("loca"), letra.fontTable("maxp")}
        , m_glifos(std::move(glifos)) {}

    [[nodiscard]] QByteArray Hace();

  private:
    void Trazos();
    void Medidas();
    [[nodiscard]] QByteArray Descripcion(quint32 glifo) const;
    [[nodiscard]] QByteArray Compuesta(QByteArray glifo);
    [[nodiscard]] quint16 NumeroDe(quint32 glifo);

    Tablas m_original;
    std::vector<quint32> m_glifos; ///< of the original, by new number; grows by the parts of composed ones
    Tablas m_nuevas;
};

QByteArray SinInstrucciones(const QByteArray& glifo, qsizetype contornos) {
    const qsizetype fin = kFinCajaDeGlifo + 2 * contornos;
    const qsizetype largo = Lee<quint16>(glifo, fin);
    QByteArray limpio = glifo.first(std::min(fin, glifo.size()));
    Agrega<quint16>(limpio, 0);
    return limpio + glifo.mid(fin + 2 + largo);
}

QByteArray Subconjunto::Descripcion(quint32 glifo) const {
    const QByteArray& loca = m_original.loca;
    const bool largos = Lee<qint16>(m_original.head, kIndexToLocFormat) != 0;
    const auto lugar = [&](qsizetype i) -> qsizetype {
        return largos ? qsizetype(Lee<quint32>(loca, 4 * i)) : 2 * qsizetype(Lee<quint16>(loca, 2 * i));
    };
    const qsizetype desde = lugar(glifo);
    return m_original.glyf.mid(desde, std::max<qsizetype>(lugar(qsizetype(glifo) + 1) - desde, 0));
}

quint16 Subconjunto::NumeroDe(quint32 glifo) {
    auto lugar = std::find(m_glifos.begin(), m_glifos.end(), glifo);
    if (lugar == m_glifos.end())
        lugar = m_glifos.insert(lugar, glifo);
    return static_cast<quint16>(lugar - m_glifos.begin());
}

/// Its parts get their new numbers.
QByteArray Subconjunto::Compuesta(QByteArray glifo) {
    constexpr quint16 kArgumentosDobles = 0x0001;
    constexpr quint16 kHayMas = 0x0020;
    constexpr quint16 kInstrucciones = 0x0100;
    constexpr std::pair<quint16, qsizetype> kEscalas[] = {{0x0008, 2}, {0x0040, 4}, {0x0080, 8}};
    qsizetype parte = kFinCajaDeGlifo;
    quint16 marcas = kHayMas;
    while ((marcas & kHayMas) != 0 && parte + 4 <= glifo.size()) {
        marcas = Lee<quint16>(glifo, parte);
        Escribe<quint16>(glifo, parte, marcas & ~kInstrucciones);
        Escribe<quint16>(glifo, parte + 2, NumeroDe(Lee<quint16>(glifo, parte + 2)));
        parte += (marcas & kArgumentosDobles) != 0 ? 8 : 6;
        for (const auto& [marca, bytes] : kEscalas)
            parte += (marcas & marca) != 0 ? bytes : 0;
    }
    return glifo.first(std::min(parte, glifo.size()));
}

/// Composed glyphs add theirs to the end of the list while it is gone through.
void Subconjunto::Trazos() {
    for (size_t i = 0; i < m_glifos.size(); ++i) { // NOLINT(modernize-loop-convert): it grows
        Agrega(m_nuevas.loca, static_cast<quint32>(m_nuevas.glyf.size()));
        const QByteArray glifo = Descripcion(m_glifos[i]);
        if (glifo.isEmpty())
            continue;
        const auto contornos = Lee<qint16>(glifo, 0);
        m_nuevas.glyf += contornos < 0 ? Compuesta(glifo) : SinInstrucciones(glifo, contornos);
        Empareja(m_nuevas.glyf);
    }
    Agrega(m_nuevas.loca, static_cast<quint32>(m_nuevas.glyf.size()));
}

/// In a fixed-width letter the last measure often stands for all glyphs behind it.
void Subconjunto::Medidas() {
    const QByteArray& hmtx = m_original.hmtx;
    const qsizetype completas = std::max<qsizetype>(Lee<quint16>(m_original.hhea, kNumberOfHMetrics), 1);
    for (const qsizetype glifo : m_glifos) {
        const qsizetype detras = glifo - completas;
        Agrega(m_nuevas.hmtx, Lee<quint16>(hmtx, 4 * std::min(glifo, completas - 1)));
        Agrega(m_nuevas.hmtx, Lee<qint16>(hmtx, detras < 0 ? 4 * glifo + 2 : 4 * completas + 2 * detras));
    }
}

quint32 Suma(const QByteArray& tabla) {
    quint32 suma = 0;
    for (qsizetype i = 0; i < tabla.size(); i += 4)
        suma += Lee<quint32>(tabla, i);
    return suma;
}

/// The tables, by name, behind their directory.
QByteArray Archivo(const std::vector<std::pair<QByteArray, QByteArray>>& tablas) {
    constexpr qsizetype kEncabezado = 12;
    constexpr qsizetype kEntrada = 16;
    const auto cuantas = static_cast<quint16>(tablas.size());
    quint16 potencia = 0;
    while ((2U << potencia) <= cuantas)
        ++potencia;
    const auto alcance = static_cast<quint16>(kEntrada << potencia);
    QByteArray directorio;
    Agrega<quint32>(directorio, 0x00010000);
    for (const quint16 numero : {cuantas, alcance, potencia, static_cast<quint16>(kEntrada * cuantas - alcance)})
        Agrega(directorio, numero);
    QByteArray cuerpo;
    for (const auto& [nombre, deLargoPropio] : tablas) {
        QByteArray tabla = deLargoPropio;
        directorio += nombre;
        const auto largo = static_cast<quint32>(tabla.size());
        Empareja(tabla);
        const auto lugar = static_cast<quint32>(kEncabezado + kEntrada * cuantas + cuerpo.size());
        for (const quint32 numero : {Suma(tabla), lugar, largo})
            Agrega(directorio, numero);
        cuerpo += tabla;
    }
    return directorio + cuerpo;
}

QByteArray Subconjunto::Hace() {
    Trazos();
    Medidas();
    const auto cuantos = static_cast<quint16>(m_glifos.size());
    Tablas& nuevas = m_nuevas;
    nuevas.head = m_original.head;
    nuevas.hhea = m_original.hhea;
    nuevas.maxp = m_original.maxp;
    Escribe<quint32>(nuevas.head, kChecksumAdjustment, 0);
    Escribe<qint16>(nuevas.head, kIndexToLocFormat, 1);
    Escribe(nuevas.hhea, kNumberOfHMetrics, cuantos);
    Escribe(nuevas.maxp, kNumGlyphs, cuantos);
    return Archivo({{"glyf", nuevas.glyf},
                    {"head", nuevas.head},
                    {"hhea", nuevas.hhea},
                    {"hmtx", nuevas.hmtx},
                    {"loca", nuevas.loca},
                    {"maxp", nuevas.maxp}});
}

} // namespace

QByteArray SubconjuntoTrueType(const QRawFont& letra, const std::vector<quint32>& glifos) {
    return Subconjunto(letra, glifos).Hace();
}

} // namespace xa518
