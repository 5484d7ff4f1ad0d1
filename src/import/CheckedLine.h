#pragma once

#include <QLatin1StringView>
#include <QString>
#include <QStringList>

#include <array>

namespace xa518 {

/// The fields of a line, in file order.
enum class Campo : int {
    TipoDoc,
    NumDoc,
    RazonSocial,
    ApellidoPaterno,
    ApellidoMaterno,
    Nombres,
    SeriePercepcion,
    NumeroPercepcion,
    FechaEmision,
    CreditoFiscal,
    RespuestaVenta,
    ListaClientes,
    MontoCobrado,
    TipoCp,
    SerieCp,
    NumeroCp,
    FechaCp,
    MontoCp,
};
inline constexpr int kCampos = 18;

/// A four-digit code of table `ERROR`. The empty one says that nothing is refused.
using Codigo = QLatin1StringView;
inline constexpr Codigo kAceptado{};

/// Joins what identifies a line in the error list: document type and number, series and number of the voucher, as the
/// line gives them.
[[nodiscard]] QString ClaveDeLinea(const QStringList& campos);

/// Why a line is refused: the code, and the number of the field at fault, -1 for the line as a whole.
struct Refutacion {
    Codigo codigo;
    int campo = -1;

    explicit operator bool() const { return !codigo.isEmpty(); }
};

/// A line as its checks leave it: the accepted texts, filled or cut, and what later checks and the tables ask of it.
/// A check reads only what checks of the same line have put, so that one record serves all lines.
struct LineaComprobada {
    std::array<QString, kCampos> campos;
    QString tipoDocLinea;          ///< the document type's value as text, "6" for a RUC
    int tipoDocPer = 0;            ///< the same as the tables keep it, a small integer
    bool clienteEsEmpresa = false; ///< a RUC that begins with "20"
    QString tipoCpCrudo;           ///< the payment voucher's type before it is filled
    int largoNumeroCp = 0;

    [[nodiscard]] QString& operator[](Campo campo) { return campos[static_cast<size_t>(campo)]; }
    [[nodiscard]] const QString& operator[](Campo campo) const { return campos[static_cast<size_t>(campo)]; }

    void PonTipoDoc(const QString& campo);
    [[nodiscard]] bool Si(Campo pregunta) const { return (*this)[pregunta] == u'1'; }
    [[nodiscard]] bool EsNotaDeCredito() const;
};

} // namespace xa518
