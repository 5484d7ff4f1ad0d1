#include "import/ErrorTexts.h"

#include "data/Catalog.h"

#include <algorithm>
#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

struct Texto {
    Codigo codigo;
    QStringView texto;
};

/// In the order of the codes. Wanted: some have no check that raises them, and the wording of others ("comprobante de
/// pago" for the amount charged) doesn't fit every field that they stand for.
constexpr std::array kTextos{
    Texto{"0201"_L1, u"Faltan campos en su archivo de transferencia"},
    Texto{"0532"_L1, u"Faltan campos en su archivo de transferencia"},
    Texto{"0858"_L1, u"Número de Comprobante no es válido"},
    Texto{"0869"_L1, u"La pregunta ¿Venta Materiales destinados a zonas afectadas - Terremoto del 15/08/2007? debe "
                     u"quedar en blanco"},
    Texto{"0870"_L1,
          u"¿Venta comprende Materiales destinados a zonas afectadas - Terremoto del 15/08/2007?  0=No  1=Si"},
    Texto{"0871"_L1, u"Registro Duplicado"},
    Texto{"0872"_L1, u"La fecha y/o el monto del comprobante de percepción no coincide"},
    Texto{"0873"_L1, u"Su cliente pertenece al listado publicado por ZOLMA?  0=No  1=Si"},
    Texto{"0874"_L1, u"Su cliente utilizó los instrumentos de pago autorizados por ZOLMA?  0=No  1=Si"},
    Texto{"0875"_L1, u"Indique si los cp involucrados generan derecho a crédito fiscal  0=No  1=Si"},
    Texto{"0876"_L1, u"La fecha de emisión del comp. emitido debe ser a partir del 01/01/2005"},
    Texto{"0877"_L1, u"El monto del comprobante de pago es muy grande"},
    Texto{"0878"_L1, u"El monto cobrado es muy grande"},
    Texto{"0879"_L1, u"El monto del comprobante no es válido"},
    Texto{"0880"_L1, u"El monto del comprobante no es numérico"},
    Texto{"0881"_L1, u"El monto del comprobante debe tener un solo punto decimal"},
    Texto{"0882"_L1, u"El monto del comprobante debe tener doce(12) números enteros"},
    Texto{"0883"_L1, u"El tipo de comprobante no es válido"},
    Texto{"0884"_L1, u"El monto cobrado no es válido"},
    Texto{"0885"_L1, u"El monto cobrado no es numérico"},
    Texto{"0886"_L1, u"El monto cobrado debe tener un solo punto decimal"},
    Texto{"0887"_L1, u"El monto cobrado debe tener doce(12) números enteros"},
    Texto{"0888"_L1, u"El tipo de documento debe ser de 1 ó 2 posiciones"},
    Texto{"0889"_L1, u"Los apellidos deben ser de 20 posiciones"},
    Texto{"0890"_L1, u"El importe de la nota de credito debe tener once(11) números enteros"},
    Texto{"0891"_L1, u"El comprobante no genera derecho a crédito fiscal"},
    Texto{"0892"_L1, u"El número de serie del comprobante de pago no es válido"},
    Texto{"0901"_L1, u"Existen campos en blanco en el archivo plano"},
    Texto{"0982"_L1, u"El importe del comprobante de pago debe ser negativo"},
    Texto{"0983"_L1, u"El importe del comprobante de pago debe ser positivo"},
    Texto{"0984"_L1, u"Ingrese el Importe del comprobante de pago"},
    Texto{"0985"_L1, u"El importe del comprobante de pago debe tener doce(12) números enteros"},
    Texto{"0986"_L1, u"El importe del comprobante de pago debe tener un solo punto decimal"},
    Texto{"0987"_L1, u"El importe del comprobante de pago no es numérico"},
    Texto{"0988"_L1, u"El importe del comprobante de pago no es válido"},
    Texto{"0989"_L1, u"La fecha de emisión del comprobante emitido es mayor a la fecha del sistema"},
    Texto{"0990"_L1, u"La fecha de emisión del comprobante origen es mayor a la fecha del sistema"},
    Texto{"0991"_L1, u"La fecha de emisión del comprobante emitido no corresponde al período declarado"},
    Texto{"0992"_L1, u"El RUC no es de una Empresa, no debe ingresar la razón social"},
    Texto{"0993"_L1, u"El RUC es de una Empresa, no debe ingresar apellidos y nombres"},
    Texto{"0994"_L1, u"El tipo de moneda del comprobante emitido esta en soles"},
    Texto{"0995"_L1, u"El tipo de moneda del comprobante emitido esta en dolares"},
    Texto{"0996"_L1, u"Ingrese el monto cobrado(S/.)"},
};

} // namespace

QString TextoFijo(Codigo codigo) {
    const auto* texto =
        std::find_if(kTextos.begin(), kTextos.end(), [&](const Texto& t) { return t.codigo == codigo; });
    return texto == kTextos.end() ? QString() : texto->texto.toString();
}

QString MotivoDe(Base& base, Codigo codigo) {
    QString fijo = TextoFijo(codigo);
    if (!fijo.isEmpty())
        return fijo;
    const QString deTabla = Catalogo(base).DescError(QString(codigo));
    return deTabla.isEmpty() ? kOtroError : deTabla;
}

} // namespace xa518
