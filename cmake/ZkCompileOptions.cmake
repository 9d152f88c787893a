# zk_compile_options(target): warnings, sanitizers and the definitions that all of the
# project's own targets share.
function(zk_compile_options target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
        -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast)
    if(ZK_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(ZK_SANITIZE)
        set(sanitizers
            -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
            -fno-omit-frame-pointer -g1)
        target_compile_options(${target} PRIVATE ${sanitizers} -O1)
        target_link_options(${target} PRIVATE ${sanitizers})
        target_compile_definitions(${target} PRIVATE QT_FORCE_ASSERTS _GLIBCXX_ASSERTIONS)
    endif()
    if(ZK_SANITIZE_THREADS)
        target_compile_options(${target} PRIVATE -fsanitize=thread -g1 -O1)
        target_link_options(${target} PRIVATE -fsanitize=thread)
    endif()
    target_compile_definitions(${target} PRIVATE QT_DISABLE_DEPRECATED_BEFORE=0x060400)
endfunction()
