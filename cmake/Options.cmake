# Compiler options shared by every target of ours.
add_library(quorvel_options INTERFACE)
target_compile_options(quorvel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond> $<$<CXX_COMPILER_ID:GNU>:-Wlogical-op>
    -Wformat=2 -Wno-missing-field-initializers -Werror)
target_compile_definitions(quorvel_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
    QT_DISABLE_DEPRECATED_BEFORE=0x060400 QUORVEL_VERSION="${PROJECT_VERSION}")
target_include_directories(quorvel_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(QUORVEL_SANITIZE)
    target_compile_options(quorvel_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(quorvel_options INTERFACE -fsanitize=address,undefined)
endif()

if(QUORVEL_FUZZ)
    target_compile_options(quorvel_options INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer -Wno-error)
    target_link_options(quorvel_options INTERFACE -fsanitize=address,undefined)
endif()
