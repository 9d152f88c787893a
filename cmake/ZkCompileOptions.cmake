# Flags by compiler: what g++ and clang both know, then what one of them needs. Another compiler is
# handed none of them and goes by its own defaults.
if(CMAKE_CXX_COMPILER_ID MATCHES "^(GNU|Clang|AppleClang)$")
    # Changes of sign: for clang they belong to -Wconversion, for g++ they do not.
    set(zk_warnings
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
        -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast)
    set(zk_warnings_as_errors -Werror)
    set(zk_sanitizers
        -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
        -fno-omit-frame-pointer -g1)
    set(zk_thread_sanitizer -fsanitize=thread)
    # Nobody asks for traps or for errno, which would keep loops from working off several numbers
    # at once. No value changes.
    set(zk_quick_loops -fno-trapping-math -fno-math-errno)
    # A constant result says nothing to callers, but is part of a member's type.
    set(zk_constant_results -Wno-ignored-qualifiers)
    # A library's calls to itself stay its own, so that the compiler may inline them.
    set(zk_own_calls -fno-semantic-interposition)
elseif(ZK_SANITIZE OR ZK_SANITIZE_THREADS)
    message(FATAL_ERROR "The sanitizers are for g++ and clang")
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang$")
    # The toolkit's test macros may be called without their last arguments.
    list(APPEND zk_warnings -Wno-gnu-zero-variadic-macro-arguments)
endif()

# zk_compile_options(target): warnings, sanitizers and the definitions that all of the
# project's own targets share.
function(zk_compile_options target)
    target_compile_options(${target} PRIVATE ${zk_warnings})
    if(ZK_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE ${zk_warnings_as_errors})
    endif()
    if(ZK_SANITIZE)
        target_compile_options(${target} PRIVATE ${zk_sanitizers} -O1)
        target_compile_definitions(${target} PRIVATE QT_FORCE_ASSERTS _GLIBCXX_ASSERTIONS)
    endif()
    if(ZK_SANITIZE_THREADS)
        target_compile_options(${target} PRIVATE ${zk_thread_sanitizer} -g1 -O1)
    endif()
    zk_link_options(${target})
    target_compile_definitions(${target} PRIVATE QT_DISABLE_DEPRECATED_BEFORE=0x060400)
endfunction()

# zk_link_options(target): what zk_compile_options needs of the linker, for a library that is
# linked from the objects of another target.
function(zk_link_options target)
    if(ZK_SANITIZE)
        target_link_options(${target} PRIVATE ${zk_sanitizers})
    endif()
    if(ZK_SANITIZE_THREADS)
        target_link_options(${target} PRIVATE ${zk_thread_sanitizer})
    endif()
endfunction()
