#pragma once
// Lector de archivos de texto por registros: una máquina que recibe octetos y entrega columnas.
//
// Reglas del formato: el delimitador entra y sale de texto y no se guarda; el separador fuera de
// texto termina la columna; un retorno de carro o un salto de línea terminan el registro, aun
// dentro de texto, y después del retorno se salta un octeto (el salto de línea que lo acompaña). De
// una columna quedan 255 octetos y de un registro 51 columnas; lo que sigue se descarta. El último
// renglón, si no tiene fin, no se entrega. Los octetos son los de la base (ISO 8859-1).
#include <QByteArray>
#include <QVector>
#include <functional>

struct RegistroLeido {
    qint64 renglon = 0; ///< desde 1
    QByteArray crudo;   ///< el renglón como está en el archivo, sin su fin
    QVector<QByteArray> columnas;

    /// Contada desde 1; vacía si el registro no la trae.
    QByteArray columna(int numero) const { return columnas.value(numero - 1); }
    bool en_blanco() const;
};

class LectorRegistros {
public:
    static constexpr int kOctetosColumna = 255;
    static constexpr int kColumnas = 51;

    /// `delimitador` 0: no hay.
    LectorRegistros(char separador, char delimitador,
                    std::function<void(const RegistroLeido&)> entregue);
    void alimente(const QByteArray& octetos);
    qint64 renglones() const { return registro_.renglon; }
    /// Lo que va del último renglón: al terminar el archivo, lo que no se entregó.
    const QByteArray& sin_fin() const { return registro_.crudo; }

private:
    void reciba(char octeto);
    void termine_columna();
    void termine_registro();

    const char separador_, delimitador_;
    std::function<void(const RegistroLeido&)> entregue_;
    RegistroLeido registro_;
    QByteArray columna_;
    bool en_texto_ = false;
    bool salte_ = false; ///< el octeto que sigue acompaña a un retorno de carro
};
