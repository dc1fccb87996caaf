# Draws the program's images from their SVG sources and compiles them in under :/resource/images.

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(OV_IMAGE_SOURCES ${PROJECT_SOURCE_DIR}/resource/images)
set(OV_IMAGE_DIR ${OV_GENERATED_DIR}/images)

# ov_render(<out variable> <picture.png> <source.svg> WxH [stylesheet])
function(ov_render out picture source size)
  string(REPLACE "x" ";" size ${size})
  list(GET size 0 width)
  list(GET size 1 height)
  set(style "")
  if(ARGN)
    set(style --stylesheet=${OV_IMAGE_SOURCES}/${ARGN})
    set(style_file ${OV_IMAGE_SOURCES}/${ARGN})
  endif()
  add_custom_command(OUTPUT ${OV_IMAGE_DIR}/${picture}
    COMMAND ${RSVG_CONVERT} -w ${width} -h ${height} ${style}
            ${OV_IMAGE_SOURCES}/${source} -o ${OV_IMAGE_DIR}/${picture}
    DEPENDS ${OV_IMAGE_SOURCES}/${source} ${style_file}
    COMMENT "Drawing ${picture}" VERBATIM)
  list(APPEND ${out} ${OV_IMAGE_DIR}/${picture})
  set(${out} ${${out}} PARENT_SCOPE)
endfunction()

# The four icons of actions in their states; file names mix x and X as the form asks for them.
function(ov_render_action_icons out)
  foreach(stem camera:24x24 export:24x24 fb_to_header:24X24 Open_folder:24X24)
    string(REPLACE ":" ";" stem ${stem})
    list(GET stem 0 name)
    list(GET stem 1 suffix)
    foreach(state 0 1 2)
      ov_render(${out} ${name}_${state}_${suffix}.png ${name}.svg 24x24 state_${state}.css)
    endforeach()
  endforeach()
  set(${out} ${${out}} PARENT_SCOPE)
endfunction()

function(ov_render_window_icon out)
  set(sizes "")
  foreach(size 16 24 32 48 64)
    ov_render(sizes logo_${size}.png logo.svg ${size}x${size})
  endforeach()
  set(script ${PROJECT_SOURCE_DIR}/resource/make-ico.py)
  add_custom_command(OUTPUT ${OV_IMAGE_DIR}/logo.ico
    COMMAND Python3::Interpreter ${script} ${OV_IMAGE_DIR}/logo.ico ${sizes}
    DEPENDS ${script} ${sizes} COMMENT "Packing logo.ico" VERBATIM)
  set(${out} ${${out}} ${OV_IMAGE_DIR}/logo.ico PARENT_SCOPE)
endfunction()

# ov_add_images(<target>)
function(ov_add_images target)
  file(MAKE_DIRECTORY ${OV_IMAGE_DIR})
  set(images "")
  ov_render_action_icons(images)
  ov_render_window_icon(images)
  ov_render(images Maravel_logo_200x260_trans.png Maravel_logo.svg 200x260)
  ov_render(images Maravel_logo_100x130_trans.png Maravel_logo.svg 100x130)
  ov_render(images arrow_up.png arrow_up.svg 48x48)
  ov_render(images arrow_down.png arrow_down.svg 48x48)
  ov_render(images welcome.png welcome.svg 530x358)
  ov_embed(${target} images /resource/images ${images})
endfunction()

# ov_add_toolkit_translation(<target>): the toolkit's own texts in Chinese, under :/resource/translations.
function(ov_add_toolkit_translation target)
  get_target_property(qmake Qt5::qmake IMPORTED_LOCATION)
  execute_process(COMMAND ${qmake} -query QT_INSTALL_TRANSLATIONS
    OUTPUT_VARIABLE folder OUTPUT_STRIP_TRAILING_WHITESPACE)
  set(source ${folder}/qtbase_zh_CN.qm)
  set(qm ${OV_GENERATED_DIR}/toolkit/qt_zh_CN.qm)
  file(MAKE_DIRECTORY ${OV_GENERATED_DIR}/toolkit)
  add_custom_command(OUTPUT ${qm}
    COMMAND ${CMAKE_COMMAND} -E copy ${source} ${qm} DEPENDS ${source} VERBATIM)
  ov_embed(${target} toolkit_texts /resource/translations ${qm})
endfunction()
