# Four precompiled headers: for the model, its tests, the views, and the tests of the views. They contain headers of
# other projects only, so that a change of our own headers rebuilds no more than it must.

set(QUELLBROOK_MODEL_HEADERS
  <algorithm> <array> <charconv> <chrono> <cmath> <cstdint> <functional> <map> <memory> <optional> <set> <string>
  <string_view> <unordered_map> <utility> <variant> <vector> <boost/signals2/connection.hpp>
  <boost/signals2/signal.hpp>)
set(QUELLBROOK_TEST_HEADERS <filesystem> <fstream> <gmock/gmock.h> <gtest/gtest.h>)
set(QUELLBROOK_VIEW_HEADERS
  <QAction> <QApplication> <QComboBox> <QEvent> <QHeaderView> <QIcon> <QKeyEvent> <QLineEdit> <QMenu> <QPainter>
  <QPixmap> <QPointer> <QScreen> <QScrollBar> <QString> <QTimer> <QTreeWidget> <QWidget>)

# A library that contains only the precompiled header that other targets use.
function(quellbrook_precompiled name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINK" ${ARGN})
  file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/${name}.cpp" CONTENT "")
  add_library(${name} OBJECT "${PROJECT_BINARY_DIR}/${name}.cpp")
  target_link_libraries(${name} PRIVATE ${ARG_LINK})
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

quellbrook_precompiled(quellbrook_precompiled_model
  HEADERS ${QUELLBROOK_MODEL_HEADERS}
  LINK quellbrook_options Boost::headers)
if(NOT QUELLBROOK_HEADLESS)
  quellbrook_precompiled(quellbrook_precompiled_views
    HEADERS ${QUELLBROOK_MODEL_HEADERS} ${QUELLBROOK_VIEW_HEADERS}
    LINK quellbrook_options Boost::headers Qt6::Widgets)
endif()
if(BUILD_TESTING)
  quellbrook_precompiled(quellbrook_precompiled_tests
    HEADERS ${QUELLBROOK_MODEL_HEADERS} ${QUELLBROOK_TEST_HEADERS}
    LINK quellbrook_test_options Boost::headers GTest::gmock)
  if(NOT QUELLBROOK_HEADLESS)
    quellbrook_precompiled(quellbrook_precompiled_view_tests
      HEADERS ${QUELLBROOK_MODEL_HEADERS} ${QUELLBROOK_VIEW_HEADERS} ${QUELLBROOK_TEST_HEADERS}
      LINK quellbrook_test_options Boost::headers Qt6::Widgets GTest::gmock)
  endif()
endif()
