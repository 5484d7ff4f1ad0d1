#pragma once

#include <QString>

#include <string>
#include <vector>

namespace xa518::medida {

/// How the lines follow each other: as issued, a client's vouchers far apart, or client after client. The first is the
/// hard one: every row goes to another place of the tables.
enum class Orden { Emision, Cliente };

/// How much a file holds.
struct Tamanio {
    int lineas = 0;
    int clientes = 0;
    int comprobantes = 0;
    Orden orden = Orden::Emision;
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
    /// Every line bears that date of issue.
    void EscribeArchivo(const QString& ruta, const std::string& fecha = "15/10/2026") const;

  private:
    Tamanio m_tamanio;
    std::vector<std::string> m_documentos;
};

} // namespace xa518::medida
