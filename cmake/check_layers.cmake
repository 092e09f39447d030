# Fails when a source breaks the layers of src/ (run as a script: cmake -DUNITS_FILE=... -P).
#
# The folders are layers, bottom to top, in the order of LK_LAYERS. A unit may include headers of
# its own folder and of the folders below it. One exception follows the program's design: screens
# hold the rules of the game, so a widget unit may also include a core unit (a record class) of a
# folder above its own, as long as that folder is not the application shell. Nothing but the
# shell includes the shell. A core unit never names a Widgets header.
include(${UNITS_FILE})

set(core_headers "")
foreach(unit ${LK_CORE_UNITS})
  if(unit MATCHES "\\.h$")
    file(RELATIVE_PATH rel ${LK_SOURCE_ROOT} ${unit})
    list(APPEND core_headers ${rel})
  endif()
endforeach()

function(layer_of folder out)
  list(FIND LK_LAYERS ${folder} rank)
  set(${out} ${rank} PARENT_SCOPE)
endfunction()

set(faults "")
foreach(unit ${LK_CORE_UNITS} ${LK_WIDGET_UNITS} ${LK_PROGRAM_UNITS})
  file(RELATIVE_PATH rel ${LK_SOURCE_ROOT} ${unit})
  string(REGEX MATCH "^[^/]+" folder ${rel})
  layer_of(${folder} rank)
  list(FIND LK_WIDGET_UNITS ${unit} widget_index)
  list(FIND LK_CORE_UNITS ${unit} core_index)
  file(STRINGS ${unit} includes REGEX "^[ \t]*#[ \t]*include")
  foreach(line ${includes})
    if(line MATCHES "\"([a-z_]+)/([^\"]+)\"")
      set(target_folder ${CMAKE_MATCH_1})
      set(header "${CMAKE_MATCH_1}/${CMAKE_MATCH_2}")
      layer_of(${target_folder} target_rank)
      if(target_rank LESS 0)
        list(APPEND faults "${rel}: includes ${header} from a folder that is no layer")
      elseif(target_rank GREATER rank)
        list(FIND core_headers ${header} is_core)
        if(widget_index LESS 0 OR is_core LESS 0 OR target_folder STREQUAL "shell")
          list(APPEND faults "${rel}: includes ${header} from the layer above it")
        endif()
      endif()
    endif()
    if(core_index GREATER_EQUAL 0 AND line MATCHES "<(QtWidgets/|QtWidgets>|Q(Widget|Dialog|MessageBox|Application|MainWindow|PushButton|LineEdit|ComboBox|Label|TreeWidget|TableWidget|FileDialog|ProgressBar|StatusBar|MenuBar|ToolBar|Menu)>)")
      list(APPEND faults "${rel}: a core unit includes the Widgets header in '${line}'")
    endif()
  endforeach()
endforeach()

if(faults)
  list(JOIN faults "\n  " text)
  message(FATAL_ERROR "The sources break the layers:\n  ${text}")
endif()
