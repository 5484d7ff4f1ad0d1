#pragma once

#include "data/Record.h"

#include <QByteArrayView>
#include <QStringView>

#include <string>
#include <vector>

namespace xa518 {

/// Many rows for one table, packed until they are added at once: a month has a million, and a `Registro` for each would
/// take more memory than the rest of an import.
class FilasNuevas {
  public:
    /// Values come in the order of `columnas`; every other column of the table stays null.
    FilasNuevas(const Tabla& tabla, QStringList columnas);

    FilasNuevas& Pon(int entero);
    /// A text is never null. It is kept as the engines keep it: a byte order mark in front of it goes.
    FilasNuevas& Pon(QStringView texto);
    FilasNuevas& PonNulo();
    /// Ends a row, whose values must all have been put.
    void CierraFila();

    /// The rows are numbered above this, also when the table has no row left of those numbers.
    void PonPiso(qint64 piso) { m_piso = piso; }
    [[nodiscard]] qint64 Piso() const { return m_piso; }

    void Vacia() { Acorta(0); }
    /// Keeps so many rows from the first on, of those that are ended; one that is being put goes as well.
    void Acorta(size_t cuantas);
    [[nodiscard]] size_t Cuantas() const { return m_comienzos.size(); }
    [[nodiscard]] const QString& NombreDeTabla() const { return m_tabla; }
    [[nodiscard]] const QStringList& Columnas() const { return m_columnas; }

    /// One value of a row.
    struct Valor {
        enum class Clase : char { Nulo, Entero, Texto };
        Clase clase = Clase::Nulo;
        int entero = 0;
        QByteArrayView texto; ///< UTF-8; as long as no row is put
    };
    /// Walks over the values of a row.
    class Lector {
      public:
        [[nodiscard]] Valor Siguiente();

      private:
        friend class FilasNuevas;
        explicit Lector(const char* lugar) : m_lugar(lugar) {}
        const char* m_lugar;
    };
    [[nodiscard]] Lector Lee(size_t fila) const { return Lector(m_bytes.data() + m_comienzos[fila]); }

  private:
    QString m_tabla;
    QStringList m_columnas;
    std::string m_bytes;
    std::vector<size_t> m_comienzos; ///< of the rows that are ended
    qint64 m_piso = 0;
    size_t m_enCurso = 0; ///< where the row begins that is being put
};

/// A text as an engine stores it, behind what `destino` holds.
void AgregaUtf8(std::string& destino, QStringView texto);

} // namespace xa518
