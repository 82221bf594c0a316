# The packages for Debian 12 and later, a component each (made by ./package).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brindlemoor)
set(CPACK_PACKAGE_CONTACT "${BRINDLEMOOR_MAINTAINER}")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL terminal)
if(BRINDLEMOOR_DESKTOP)
  list(APPEND CPACK_COMPONENTS_ALL desktop)
endif()

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_DEBIAN_TERMINAL_PACKAGE_NAME brindle)
set(CPACK_DEBIAN_TERMINAL_DESCRIPTION "card games that anyone can write, on the terminal
Plays and checks collectible card games that are folders of text files: says
what is wrong in card files, carries out tests of cards, plays thousands of
matches and tells who wins, helps editors while card files are typed, and puts
a game into one archive for others.
.
Needs no display. The package brindlemoor has the program with windows.")

set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME brindlemoor)
# Views show pages with pictures of kinds that the toolkit reads by plugins.
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "qt6-image-formats-plugins, fonts-dejavu-core")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SUGGESTS brindle)
set(CPACK_DEBIAN_DESKTOP_DESCRIPTION "collectible card games that anyone can write
Plays collectible card games against the computer: one owns a collection, opens
boosters, builds decks and meets opponents. A game is a folder of text files
that say which cards there are and what they do; two of them come along.
.
The card editor, a tutorial and a reference of every word help authors to write
games of their own and to pass them on as one file.")

include(CPack)
