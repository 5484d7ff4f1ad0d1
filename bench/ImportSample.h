#pragma once

#include <QString>

#include <string>
#include <vector>

namespace xa518::medida {

/// How much a file holds. The vouchers of a client lie far apart, as they do in a month in the order of issue.
struct Tamanio {
    int lineas = 0;
    int clientes = 0;
    int comprobantes = 0;
};

/// One line of the sample, the parts that vary.
struct LineaMuestra {
    bool empresa = false;
    std::string documento;
    std::string comprobante;
    std::string pago;
    std::string monto;
    std::string percepcion;
};

class Muestra {
  public:
    explicit Muestra(const Tamanio& tamanio);

    [[nodiscard]] LineaMuestra Linea(int indice) const;
    void EscribeArchivo(const QString& ruta) const;

  private:
    Tamanio m_tamanio;
    std::vector<std::string> m_documentos;
};

} // namespace xa518::medida
