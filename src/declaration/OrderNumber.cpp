#include "declaration/OrderNumber.h"

#include "data/Base.h"
#include "data/Catalog.h"
#include "data/RecordChecksum.h"
#include "data/Retry.h"
#include "data/Transaction.h"
#include "family/ChangeLog.h"
#include "family/StoredDeclaration.h"
#include "values/CheckDigits.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargoMinimo = 8;

VeredictoDeclaracion Alto(MomentoOrden momento, const QString& enBoton, const QString& alCerrar) {
    const QString texto = momento == MomentoOrden::Boton ? enBoton : alCerrar;
    return VeredictoDeclaracion::Critico(texto, CampoDeclaracion::NumeroDeOrden);
}

/// A copy that is gone is passed over.
void Registra(Base& base, const ClaveDeclaracion& clave, const QString& numero, const Firma& firma) {
    Transaccion transaccion = base.Comienza();
    std::optional<Registro> cabecera = base.Busca(u"HCAB"_s, clave.Condicion(), clave.Valores());
    if (!cabecera)
        return;
    const QString anterior = cabecera->Valor(u"norden").toString();
    cabecera->Pon(u"norden", numero);
    PonChecksum(*cabecera, kTablaCabecera.numericasEnviada);
    base.Actualiza(*cabecera, clave.Condicion(), clave.Valores());
    Bitacora bitacora(base);
    const QString marca = bitacora.Anota(firma, {.suceso = Suceso::NumeroDeOrden,
                                                 .clave = clave,
                                                 .antes = u"norden="_s + anterior,
                                                 .despues = u"norden="_s + numero});
    bitacora.Confirma(transaccion, marca);
}

} // namespace

VeredictoDeclaracion ValidaNumeroDeOrden(const NumeroDeOrden& orden, MomentoOrden momento) {
    if (orden.numero.size() < kLargoMinimo)
        return Alto(momento, u"     El número de orden no es válido"_s, u"El número de orden es incorrecto"_s);
    if (!ValidaDigitosOrden(orden.control, orden.numero, orden.digitos))
        return Alto(momento, u"     El digito Verificador es incorrecto"_s, u"Digito verificador incorrecto"_s);
    return Veredicto::Bien();
}

Mensaje RegistraNumeroDeOrden(Base& base, const ClaveDeclaracion& clave, const QString& numero, const Firma& firma) {
    const QString hecho = Catalogo(base).DescError(u"0151"_s); // behind the commit the connection may be gone
    ConReintentos([&] { Registra(base, clave, numero, firma); });
    return {Icono::Exclamacion, hecho, {}};
}

} // namespace xa518
