#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>

namespace xa518 {

/// A row of a few columns that leaves the engine as one text: each value that leaves it by itself costs more than its
/// reading. Null reads as the empty text.
class FilaUnida {
  public:
    static constexpr size_t kCampos = 12;

    /// What a query selects for it: a JSON array, which the engine writes sooner than any other text of several values,
    /// as the bytes that it is made of, which the engine needn't turn into another encoding.
    [[nodiscard]] static QString Sql(const QStringList& columnas);

    FilaUnida() = default;
    explicit FilaUnida(const QByteArray& json);

    /// Valid as long as the row is. Empty for one that the row doesn't have.
    [[nodiscard]] QStringView Campo(size_t indice) const {
        const Tramo& tramo = m_campos[indice];
        return QStringView(m_texto).sliced(tramo.desde, tramo.largo);
    }

  private:
    struct Tramo {
        int desde = 0;
        int largo = 0;
    };

    QString m_texto;
    std::array<Tramo, kCampos> m_campos;
};

} // namespace xa518
