// Una base en uso, de cualquier versión anterior, queda al ponerla al día como una recién creada:
// tablas, columnas, índices, restricciones, disparadores, procedimientos y permisos. Los respaldos
// de datos/ se hicieron con los guiones de su versión.
#include "apoyo/retrato_esquema.h"
#include "datos/firebird/servicios.h"
#include "datos/firebird/version_esquema.h"

class PruebaEsquemaActualizado : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        conecte(nueva_, de_prueba_.parametros().base);
        conecte(general_nueva_, de_prueba_.parametros_general().base);
        esperado_ = retrato_esquema(nueva_);
        QVERIFY(esperado_.size() > 3000);
    }

    void una_base_vieja_queda_como_una_nueva() {
        // La primera; la primera que llevó el número 2; la 2 con procesos de cierre y activos ya
        // hechos, pero sin lo último de ellos.
        for (const char* version : {"v1", "v2", "v2b"}) {
            ponga_al_dia(version);
            if (QTest::currentTestFailed())
                return;
            Conexion c;
            conecte(c, lugar(version).base_compania("001"));
            const QStringList diferencias = diferencias_de(retrato_esquema(c), esperado_);
            QVERIFY2(diferencias.isEmpty(), qPrintable(diferencias.join('\n')));
            QCOMPARE(c.consulte("select max(vers_numero) from version_esquema").entero(),
                     kVersionCompania);
            // Lo que el sistema siembra también está entero.
            for (const char* claves : {"select conf_modulo || conf_categoria || conf_propiedad "
                                       "from configuracion order by 1",
                                       "select nombre from nombres_campos order by 1",
                                       "select tido_cod from tipo_documento order by 1",
                                       "select tido_cod from documento_contable order by 1"})
                QCOMPARE(filas_de(c, claves), filas_de(nueva_, claves));
            for (const char* libro : {"2649", "NIIF"})
                QCOMPARE(filas_de(c, QString("select * from verifique_saldos('%1')").arg(libro)),
                         QString());
        }
    }

    void la_base_general_vieja_queda_como_una_nueva() {
        const QString ruta = carpeta_.filePath("general_v1.fbk");
        descomprima(QFINDTESTDATA("datos/general_v1.fbk.gz"), ruta);
        lugar("general").prepare_carpeta(lugar("general").base_general());
        restaure_base(ruta, {lugar("general").base_general(), "SYSDBA", {}}, false);
        const auto r = ordene("general", {"actualizar"});
        QVERIFY2(r.codigo == 0, qPrintable(r.errores));
        Conexion c;
        conecte(c, lugar("general").base_general());
        const QStringList diferencias =
            diferencias_de(retrato_esquema(c), retrato_esquema(general_nueva_));
        QVERIFY2(diferencias.isEmpty(), qPrintable(diferencias.join('\n')));
    }

    void lo_que_un_proceso_hizo_antes_se_deshace_despues() {
        // La base v2b trae, hechos con los guiones de entonces, un cierre, una depreciación y un
        // deterioro.
        Conexion c;
        conecte(c, lugar("v2b").base_compania("001"));
        const char* const hechos =
            "select (select count(*) from cierre_anual), (select count(*) from depreciacion), "
            "(select count(*) from activos_fijos_valor) from rdb$database";
        QCOMPARE(filas_de(c, hechos), "1|1|1");
        for (const char* tabla : {"activos_fijos_valor", "depreciacion", "cierre_anual"})
            c.ejecute(QString("delete from %1").arg(tabla));
        QCOMPARE(filas_de(c, hechos), "0|0|0");
        QCOMPARE(saldos_distintos(c), QString());
        c.ejecute("insert into depreciacion (depr_id, depr_fecha, tico_cod, prco_pref, depr_conc, "
                  "depr_niif) values (0, '20170131', 'CG', '0001', 'Enero', 'A')");
        QCOMPARE(filas_de(c, "select dede_libro, dede_valor from depreciacion_detalle order by 1"),
                 "2649|100\nNIIF|50");
    }

private:
    Ubicacion lugar(const QString& cual) const { return Ubicacion(carpeta_.filePath(cual)); }
    ResultadoHerramienta ordene(const QString& cual, const QStringList& orden) const {
        return administre(orden + QStringList{"--ubicacion", carpeta_.filePath(cual)});
    }
    static void conecte(Conexion& c, const QString& base) {
        ParametrosConexion p{base, "SYSDBA", {}};
        p.rol.clear();
        c.conectar(p);
    }
    /// Restaura el respaldo de esa versión en una ubicación con su nombre y la pone al día.
    void ponga_al_dia(const QString& version) {
        const QString datos = QFINDTESTDATA("datos/compania_" + version + ".fbk.gz"),
                      respaldo = carpeta_.filePath(version + ".fbk");
        descomprima(datos, respaldo);
        QCOMPARE(ordene(version, {"crear-general"}).codigo, 0);
        {
            Conexion general;
            conecte(general, lugar(version).base_general());
            general.ejecute("insert into compania (comp_cod, com_nombre) values ('001', 'Vieja')");
        }
        lugar(version).prepare_carpeta(lugar(version).base_compania("001"));
        const ParametrosConexion vieja{lugar(version).base_compania("001"), "SYSDBA", {}};
        restaure_base(respaldo, vieja, false);
        ponga_escritura_inmediata(vieja, false);
        const auto r = ordene(version, {"actualizar"});
        QVERIFY2(r.codigo == 0, qPrintable(r.errores));
        QVERIFY2(r.salida.contains("005_titulos_planilla, 006_taxonomia_resultado, "
                                   "007_taxonomia_anteriores"),
                 qPrintable(r.salida));
    }

    QTemporaryDir carpeta_;
    BaseDePrueba de_prueba_; ///< recién creada con los guiones de hoy
    Conexion nueva_, general_nueva_;
    QMap<QString, QString> esperado_;
};

QTEST_GUILESS_MAIN(PruebaEsquemaActualizado)
#include "prueba_esquema_actualizado.moc"
