#pragma once

#include "reports/PageCommands.h"

#include <QByteArrayView>

#include <array>
#include <optional>

namespace xa518 {

/// One line of a spool file taken apart: its word, and its fields as they stand. It never fails: a line that no report
/// writes has a word that nobody knows, or too few fields.
class LineaSpool {
  public:
    explicit LineaSpool(QByteArrayView linea);

    /// The command that the line stands for; nothing for an unknown word or a line with fields missing.
    /// Numbers that are none are 0; one past a million, which no page has room for, becomes a million.
    [[nodiscard]] std::optional<Comando> Lee() const;

    /// The page of the command, without the cost of its text; -1 when it has none.
    [[nodiscard]] int Pagina() const;
    [[nodiscard]] bool EsDePagina() const {
        return m_clase == Clase::Texto || m_clase == Clase::Vertical || m_clase == Clase::Cuadro;
    }
    [[nodiscard]] bool EsEtiqueta() const { return m_clase == Clase::Etiqueta; }

  private:
    enum class Clase { Ninguna, Texto, Vertical, Cuadro, NuevaHoja, Etiqueta };

    void CortaPalabra();
    void CortaCampos(int cuantos);
    [[nodiscard]] TextoEnPagina Texto() const;
    [[nodiscard]] std::optional<Comando> LeeEtiqueta() const;

    Clase m_clase = Clase::Ninguna;
    Etiqueta::Clase m_etiqueta = Etiqueta::Clase::Fuente;
    QByteArrayView m_resto; ///< behind the word
    std::array<QByteArrayView, 6> m_campos;
};

} // namespace xa518
