# brivandel_bundle(TARGET): makes the program Brivandel.app, with its icon and its licence.
function(brivandel_bundle target)
  set(packaging ${PROJECT_SOURCE_DIR}/packaging/macos)
  add_executable(brivandel_icon_maker ${packaging}/IconMaker.cpp)
  target_link_libraries(brivandel_icon_maker PRIVATE Qt6::Svg brivandel_options)

  set(icon ${CMAKE_CURRENT_BINARY_DIR}/Brivandel.icns)
  set(picture ${PROJECT_SOURCE_DIR}/resources/logo-square.svg)
  add_custom_command(OUTPUT ${icon} COMMAND brivandel_icon_maker ${picture} ${icon} DEPENDS ${picture} brivandel_icon_maker)
  set(resources ${icon} ${PROJECT_SOURCE_DIR}/LICENSE)
  set_source_files_properties(${resources} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
  target_sources(${target} PRIVATE ${resources})
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME Brivandel
    MACOSX_BUNDLE TRUE
    MACOSX_BUNDLE_INFO_PLIST ${packaging}/Info.plist.in
    MACOSX_BUNDLE_GUI_IDENTIFIER org.brivandel.Brivandel
    MACOSX_BUNDLE_ICON_FILE Brivandel
    MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}
    MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION})
endfunction()
