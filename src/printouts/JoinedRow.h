#pragma once

#include <QByteArray>
#include <QString>

#include <array>

namespace xa518 {

/// A row of a few columns that leaves the engine as one text: each value that leaves it by itself costs more than its
/// reading. Null reads as the empty text.
class FilaUnida {
  public:
    static constexpr size_t kCampos = 12;

    FilaUnida() = default;
    /// Of what `Base::SqlUnidas` selects.
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
