# Debian packages: `orvane`, and one for each plugin, which brings the libraries that only it needs.
get_property(plugins GLOBAL PROPERTY ORVANE_PLUGINS)

set(web_summary "summary cards and their export, shown by the web engine")
set(sound_summary "tones of focus sessions")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvane)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Orvane developers")
set(CPACK_PACKAGE_CONTACT "Orvane developers <orvane@orvane.org>")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# So that files which name a path name the installed one.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL orvane ${plugins})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(CPACK_DEBIAN_ORVANE_PACKAGE_NAME orvane)
set(CPACK_DEBIAN_ORVANE_PACKAGE_DEPENDS tzdata)
list(TRANSFORM plugins PREPEND orvane- OUTPUT_VARIABLE recommended)
list(APPEND recommended fonts-inter qt6-wayland xdg-utils "default-dbus-session-bus | dbus-session-bus")
list(JOIN recommended ", " CPACK_DEBIAN_ORVANE_PACKAGE_RECOMMENDS)
set(CPACK_DEBIAN_ORVANE_PACKAGE_SUGGESTS fonts-noto-cjk)
set(CPACK_DEBIAN_ORVANE_DESCRIPTION
    "tasks, calendar, focus and habits on the desktop
Lists in folders, tags, priorities, dates and reminders, a calendar, Pomos and
habits. A task is typed as one would say it, and its date, priority and tags
are recognised. Everything is kept on this computer.
.
The same program adds, lists and completes tasks on the command line.")

foreach(plugin IN LISTS plugins)
    if(NOT ${plugin}_summary)
        message(FATAL_ERROR "packaging/packages.cmake has no ${plugin}_summary for the package orvane-${plugin}.")
    endif()
    string(TOUPPER ${plugin} PLUGIN)
    set(CPACK_DEBIAN_${PLUGIN}_PACKAGE_NAME orvane-${plugin})
    set(CPACK_DEBIAN_${PLUGIN}_PACKAGE_DEPENDS "orvane (= ${PROJECT_VERSION})")
    set(CPACK_DEBIAN_${PLUGIN}_PACKAGE_ENHANCES orvane)
    set(CPACK_DEBIAN_${PLUGIN}_DESCRIPTION "${${plugin}_summary}
A part of Orvane that is loaded when it is first needed. Without it the rest
works as it does with it.")
    orvane_install_documents(orvane-${plugin} ${plugin})
endforeach()
include(CPack)

add_custom_target(packages COMMAND ${CMAKE_CPACK_COMMAND} --config ${CMAKE_BINARY_DIR}/CPackConfig.cmake
    DEPENDS orvane WORKING_DIRECTORY ${CMAKE_BINARY_DIR} USES_TERMINAL)
