#pragma once
// Una taxonomía: sus categorías y el árbol de renglones de cada una, con sus cuentas y notas; la
// impresión y el archivo de una categoría.
#include "catalogues/maestro_detalle.h"

class FechaDato;
class QFrame;

class Tfmodtaxonom : public MaestroDetalle {
    Q_OBJECT
public:
    Tfmodtaxonom();
    void FormCreate() override;

    ConjuntoDatos* CImprtax;
    FechaDato* EFecIni;
    QFrame* Panel;

private:
    struct Consultas {
        Sentencia *categorias, *renglones;
    };
    static Consultas cree_consultas();
    explicit Tfmodtaxonom(Consultas consultas);
    void defina_campos();
    void arme_panel();
    void arme_barra();
    void CTaxencabezaAfterInsert();
    void CTaxdetalleAfterInsert();
    bool grabe();
    void abra_del_renglon(const QString& pantalla);
    void muestre_panel(bool imprime);
    void acepte();
    void salga();
    bool abra_resultado();
    void imprima();
    void disene();
    void exporte();
    int seccion() const;

    Sentencia* categorias_;
    QPushButton *imprimir_, *exportar_;
    bool imprime_ = true; ///< el panel está a la vista para imprimir, y no para exportar
    int taxonomia_ = 0;
};
