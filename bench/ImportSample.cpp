#include "ImportSample.h"

#include "values/CheckDigits.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <stdexcept>

namespace xa518::medida {

using namespace Qt::StringLiterals;

namespace {

std::string Relleno(int64_t numero, size_t ancho) {
    const std::string cifras = std::to_string(numero);
    return std::string(ancho - std::min(ancho, cifras.size()), '0') + cifras;
}

bool EsEmpresa(int cliente) {
    return cliente % 2 == 0;
}

std::string Documento(int cliente) {
    if (!EsEmpresa(cliente))
        return Relleno(40000000 + cliente, 8);
    QString diez = u"20%1"_s.arg(10000000 + cliente);
    return DigitoVerificador(diez).toStdString();
}

/// In the order of issue it scatters clients over vouchers without repeating itself before all had their turn.
int ClienteDe(int comprobante, const Tamanio& tamanio) {
    constexpr int64_t kPaso = 7919;
    const int64_t cliente = tamanio.orden == Orden::Emision
                                ? comprobante * kPaso % tamanio.clientes
                                : static_cast<int64_t>(comprobante) * tamanio.clientes / tamanio.comprobantes;
    return static_cast<int>(cliente);
}

} // namespace

Muestra::Muestra(const Tamanio& tamanio) : m_tamanio(tamanio) {
    for (int cliente = 0; cliente < tamanio.clientes; ++cliente)
        m_documentos.push_back(Documento(cliente));
}

LineaMuestra Muestra::Linea(int indice) const {
    const int porComprobante = m_tamanio.lineas / m_tamanio.comprobantes;
    const int comprobante = indice / porComprobante;
    const int cliente = ClienteDe(comprobante, m_tamanio);
    const std::string centimos = Relleno(comprobante % 100, 2);
    return {EsEmpresa(cliente),
            m_documentos[static_cast<size_t>(cliente)],
            Relleno(comprobante + 1, 8),
            Relleno(indice + 1, 8),
            std::to_string(100 + comprobante % 900) + "." + centimos,
            std::to_string(2 + comprobante % 18) + "." + centimos};
}

void Muestra::EscribeArchivo(const QString& ruta, const std::string& fecha) const {
    std::ofstream archivo(ruta.toStdString(), std::ios::binary);
    for (int i = 0; i < m_tamanio.lineas; ++i) {
        const LineaMuestra linea = Linea(i);
        archivo << (linea.empresa ? "06|" : "01|") << linea.documento
                << (linea.empresa ? "|COMERCIAL DEL VALLE Y HERMANOS S.A.C.||||" : "||QUISPE|ROJAS|MARIA ELENA|")
                << "0001|" << linea.comprobante << '|' << fecha << "|1|0|1|" << linea.monto << "|01|F001|" << linea.pago
                << "|10/10/2026|" << linea.monto << "|\r\n";
    }
    if (!archivo.flush())
        throw std::runtime_error("the sample can't be written");
}

} // namespace xa518::medida
