#pragma once

#include "app/Dialogs.h"
#include "form518/UnsavedDeclaration.h"

#include <functional>

namespace xa518 {

/// What becomes of a declaration that wasn't saved: taken up again, put aside, or left where it is until it is asked
/// about once more. What is passed by reference must outlive its windows.
class OfertaDeRetomar {
  public:
    /// `abre` opens the declaration that was picked, which is one that is taken up again.
    using Abre = std::function<void(const AperturaPedida& pedida)>;

    OfertaDeRetomar(Proceso& proceso, Avisos& avisos, Abre abre);

    /// Asks about the one whose detail stands in the work tables, if there is one, and with one picked only if it is
    /// that one. `sigue` runs when nothing is left to lose; otherwise the command ends here. Raises `ErrorBase`.
    void Pregunta(const AperturaPedida& pedida, std::function<void()> sigue) const;
    /// Offers those that were put aside, the last one first, and tells when there is none. Raises `ErrorBase`.
    void OfreceApartadas(const AperturaPedida& pedida) const;
    /// Drops those that were put aside long ago. Raises `ErrorBase`.
    void BorraViejas() const;

  private:
    void Atiende(const AperturaPedida& pedida, const FilaSinGrabar& hallada, std::function<void()> sigue) const;
    void Aparta(const AperturaPedida& pedida, const QString& nombre, std::function<void()> despues) const;
    void Devuelve(const AperturaPedida& pedida, int copia) const;
    void Retoma(const AperturaPedida& pedida, const SinGrabar& fila) const;

    Proceso* m_proceso;
    Avisos* m_avisos;
    Abre m_abre;
};

/// What is told of a declaration that is taken up again, about its half-done parts; nothing when there are none.
[[nodiscard]] std::optional<Mensaje> AvisoDeLoIncompleto(const DetalleCompletado& completado);

} // namespace xa518
