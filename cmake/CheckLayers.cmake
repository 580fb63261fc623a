# cmake -DSOURCES=<src folder> -P CheckLayers.cmake
# Fails when a source names a room that its own room may not know. A room knows itself and the rooms before it in this
# list, and nothing before the first Qt room knows the toolkit.
set(rooms base platform comm/api model comm config shell
  ui/common comm/dialogs ui/prompts shell/window ui/advanced
  ui/wizards/frame ui/wizards/vexlon ui/wizards/cendra ui/wizards/analogtx main)
set(first_qt_room ui/common)
# The wizards of the products know the frame that they share, and not each other.
set(separate_rooms ui/wizards/vexlon ui/wizards/cendra ui/wizards/analogtx)
# Files in Qt rooms that are built and tested without Qt; they know the rooms before Qt and each other.
set(toolkit_free_files AnalogTx BitsetElements Board[A-Za-z]* Cendra[A-Za-z]* EnclosureMatch FileActions HelpTips
  HexFieldRules IRegisterView ISerialWizardDialogs ItemObject IWizard[A-Za-z]+ NavigationTree NodeIdGuard
  PulseWidth RegisterTransfer RegisterWrite RtfReader RtfText SerialActions SerialTarget SerialWizardFlash
  SerialWizardMenu SerialWizardProduct TransferStep UI_LineItem Vexlon[A-Za-z]* WizardDescription WizardElements
  WizardFiles WizardFrame[A-Za-z]* WizardLink[A-Za-z]* [A-Za-z]*Rules)
# Headers that the build makes, and what the meta-object compiler writes beside a source.
set(generated_headers "^(VersionNumbers\\.h|[A-Za-z_]+\\.moc)$")

list(FIND rooms ${first_qt_room} first_qt_index)
list(JOIN toolkit_free_files "|" toolkit_free_pattern)
set(faults "")

function(room_of file result)
  set(best "")
  foreach(room IN LISTS rooms)
    string(LENGTH "${best}" best_length)
    string(LENGTH "${room}" length)
    string(FIND "${file}" "${room}/" position)
    if(position EQUAL 0 AND length GREATER best_length)
      set(best ${room})
    endif()
  endforeach()
  set(${result} "${best}" PARENT_SCOPE)
endfunction()

# Whether a file must do without Qt: by its room, or by its name in a room that has Qt.
function(is_toolkit_free file result)
  room_of(${file} room)
  list(FIND rooms "${room}" index)
  get_filename_component(name ${file} NAME_WE)
  if(index LESS first_qt_index OR name MATCHES "^(${toolkit_free_pattern})$")
    set(${result} TRUE PARENT_SCOPE)
  else()
    set(${result} FALSE PARENT_SCOPE)
  endif()
endfunction()

macro(fault text)
  list(APPEND faults "${file}: ${text}")
endmacro()

macro(check_system_header header)
  if(toolkit_free AND "${header}" MATCHES "^[Qq]")
    fault("<${header}> belongs to Qt, and this file is built without it")
  endif()
endmacro()

macro(check_own_header header)
  if(NOT "${header}" MATCHES "${generated_headers}")
    room_of("${header}" other)
    list(FIND rooms "${other}" other_index)
    list(FIND separate_rooms "${room}" separate)
    list(FIND separate_rooms "${other}" other_separate)
    if(other STREQUAL "" OR "${header}" MATCHES "\\.\\.")
      fault("\"${header}\" does not begin with a room of src")
    elseif(separate GREATER -1 AND other_separate GREATER -1 AND NOT other STREQUAL room)
      fault("\"${header}\" belongs to the wizard of another product")
    elseif(other_index GREATER room_index)
      fault("\"${header}\" belongs to a room that ${room} may not know")
    elseif(toolkit_free)
      is_toolkit_free("${header}" other_toolkit_free)
      if(NOT other_toolkit_free)
        fault("\"${header}\" may bring Qt into a file that is built without it")
      endif()
    endif()
  endif()
endmacro()

get_filename_component(SOURCES ${SOURCES} ABSOLUTE)
file(GLOB_RECURSE files RELATIVE ${SOURCES} ${SOURCES}/*.h ${SOURCES}/*.cpp ${SOURCES}/*.in)
if(NOT files)
  message(FATAL_ERROR "There are no sources in ${SOURCES}")
endif()
foreach(file IN LISTS files)
  room_of(${file} room)
  list(FIND rooms "${room}" room_index)
  if(room STREQUAL "")
    fault("stands in no room")
    continue()
  endif()
  is_toolkit_free(${file} toolkit_free)
  file(STRINGS ${SOURCES}/${file} includes REGEX "^[ \t]*#[ \t]*include")
  foreach(line IN LISTS includes)
    if(line MATCHES "include[ \t]*<([^>]+)>")
      check_system_header("${CMAKE_MATCH_1}")
    elseif(line MATCHES "include[ \t]*\"([^\"]+)\"")
      check_own_header("${CMAKE_MATCH_1}")
    else()
      fault("cannot be read: ${line}")
    endif()
  endforeach()
endforeach()

list(LENGTH files file_count)
if(faults)
  list(JOIN faults "\n  " text)
  message(FATAL_ERROR "Rooms that know what they may not:\n  ${text}")
endif()
message(STATUS "${file_count} sources keep to their rooms")
