#pragma once

#include <QList>
#include <QString>

class QIODevice;

namespace xa518 {

class Base;
struct ClaveDeclaracion;
struct FormatoImportacion;
struct Proceso;

/// A stored row that no line of an import file would bring back as it stands.
struct FilaSinLugar {
    QString fila; ///< the keys of client, voucher and payment voucher, joined by blanks
    QString motivo;
};

/// Writes the vouchers of a saved declaration, registered or sent, as an import file of their kind: the same checks and
/// the same rules as an import's are asked of each line first, and one that would be refused, or whose rows would come
/// out different, is left out and named. So what is written goes back in to the same tables.
class Exportacion {
  public:
    Exportacion(Proceso& proceso, const ClaveDeclaracion& clave) : m_proceso(&proceso), m_clave(&clave) {}

    /// Returns how many lines were written. Raises `Error` when the base or the device fails.
    [[nodiscard]] qint64 Escribe(const FormatoImportacion& formato, QIODevice& destino);

    /// What hasn't been written so far, in its order; behind all of them come what belongs to no line of either kind:
    /// clients without vouchers, and payment vouchers without theirs.
    [[nodiscard]] QList<FilaSinLugar> SinLugar() const;

  private:
    Proceso* m_proceso;
    const ClaveDeclaracion* m_clave;
    QList<FilaSinLugar> m_sinLugar;
};

} // namespace xa518
