# Declara un piso del sistema: una biblioteca estática con todos los .cpp de su carpeta, los pisos de
# los que depende y su cabecera precompilada: pch.h de la carpeta o, con CABECERA, la de otro piso de
# más abajo: construir una por piso cuesta más de lo que ahorra. La de la carpeta se incluye igual.
#   quorvex_piso(datos_firebird DEPENDE Qt6::Core)
#   quorvex_piso(tax CABECERA catalogues DEPENDE catalogues)
function(quorvex_piso nombre)
  cmake_parse_arguments(P "RECURSIVO" "CABECERA" "DEPENDE" ${ARGN})
  if(P_RECURSIVO)
    file(GLOB_RECURSE fuentes CONFIGURE_DEPENDS *.cpp *.h)
  else()
    file(GLOB fuentes CONFIGURE_DEPENDS *.cpp *.h)
  endif()
  file(GLOB recursos CONFIGURE_DEPENDS *.qrc)
  if(recursos)
    qt_add_resources(recursos_cpp ${recursos})
  endif()
  add_library(${nombre} STATIC ${fuentes} ${recursos_cpp})
  target_include_directories(${nombre} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(${nombre} PUBLIC ${P_DEPENDE})
  target_compile_options(${nombre} PRIVATE -Wall -Wextra -Wno-unused-parameter)
  if(P_CABECERA)
    target_precompile_headers(${nombre} REUSE_FROM ${P_CABECERA})
  elseif(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/pch.h)
    target_precompile_headers(${nombre} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/pch.h)
  endif()
endfunction()

# Las más largas, con los segundos que tardan en un equipo quieto: CTest empieza por ellas aunque no
# las haya corrido nunca.
set(quorvex_largas
    prueba_administrador 100 prueba_hojas 75 prueba_actualizacion 55 prueba_esquema_actualizado 55
    prueba_cortes 50 prueba_servidor 45 prueba_cortes_pantallas 43 prueba_demostracion 40
    prueba_cierre_muerto 38 prueba_consolidados 35 prueba_importacion 34 prueba_depreciacion 33
    prueba_principal 32 prueba_restauracion 30 prueba_manos 30 prueba_mantenimiento 30
    prueba_copia_y_respaldo 30 prueba_lote 26 prueba_muerte_subita 24 prueba_aspecto 23
    prueba_estados 23 prueba_servidor_caido 21)

# Un programa de pruebas por archivo: tests/<piso>/prueba_x.cpp.
function(quorvex_prueba archivo)
  cmake_parse_arguments(P "" "" "DEPENDE" ${ARGN})
  get_filename_component(nombre ${archivo} NAME_WE)
  # La prueba incluye su .moc: pedirlo aquí ahorra el objetivo y la fuente que AUTOMOC le haría.
  qt_generate_moc(${archivo} ${CMAKE_CURRENT_BINARY_DIR}/${nombre}.moc)
  add_executable(${nombre} ${archivo} ${CMAKE_CURRENT_BINARY_DIR}/${nombre}.moc)
  # Las mismas bibliotecas de Qt en todas: la cabecera precompilada exige iguales definiciones.
  target_link_libraries(${nombre} PRIVATE ${P_DEPENDE} apoyo_pruebas Qt6::Widgets Qt6::PrintSupport
                        Qt6::Network Qt6::Test)
  target_include_directories(${nombre} PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/tests
                             ${CMAKE_CURRENT_BINARY_DIR})
  target_precompile_headers(${nombre} REUSE_FROM pch_pruebas)
  set_target_properties(${nombre} PROPERTIES AUTOMOC OFF UNITY_BUILD OFF) # es una sola fuente
  # Carpeta de bloqueos del motor propia: una prueba que mata procesos no estorba a las demás.
  add_test(NAME ${nombre} COMMAND ${nombre} WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
  # Una prueba que se cuelga falla diciendo en qué función antes de que CTest la termine. El plazo
  # no mide nada: en un equipo cargado las más largas tardan varias veces lo suyo.
  set_tests_properties(${nombre} PROPERTIES ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen;QUORVEX_PROYECTO=${CMAKE_SOURCE_DIR};QUORVEX_CONSTRUCCION=${CMAKE_BINARY_DIR};QTEST_FUNCTION_TIMEOUT=540000;XDG_DATA_HOME=${CMAKE_BINARY_DIR}/datos_pruebas/${nombre}" TIMEOUT 600)
  list(FIND quorvex_largas ${nombre} lugar)
  if(NOT lugar EQUAL -1)
    math(EXPR lugar "${lugar} + 1")
    list(GET quorvex_largas ${lugar} segundos)
    set_tests_properties(${nombre} PROPERTIES COST ${segundos})
  endif()
endfunction()
