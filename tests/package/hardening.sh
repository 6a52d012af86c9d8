# shellcheck shell=bash
# What keeps a fault in a program from becoming somebody's way in, looked for in the built file; sourced behind checks.sh.
#
#   hardened NAME FILE           checks of a program for Linux, for whichever processor
#   hardened_windows NAME FILE   checks of one for Windows

# many NAME SHARE COUNT OF: the count is at least a share, in percent, of another.
many() {
  if [ "$3" -gt 0 ] && [ "$((100 * $3))" -ge "$(($2 * $4))" ]; then ok "$1"; else not_ok "$1"; echo "# $3 of $4"; fi
}
calls() { grep -cE "(call|bl) .*<$1(@plt)?>" code.txt; }

hardened() {
  local name=$1 file=$2 functions
  readelf -hldW "$file" >elf.txt 2>&1
  objdump -d --no-show-raw-insn "$file" >code.txt
  functions=$(grep -cE '^ .*\sret\b' code.txt)
  check "$name may be put at any place" grep -qE 'Type: +DYN .*Position-Independent Executable' elf.txt
  check "$name says so to the loader" grep -qE 'FLAGS_1.*\bPIE\b' elf.txt
  check "$name has no code on its stack" grep -qE 'GNU_STACK .* RW +0x' elf.txt
  check "$name has no segment to write and to run" test "$(grep -cE '^ +[A-Z_]+ +0x.* RWE ' elf.txt)" = 0
  check "$name has read-only relocations" grep -q GNU_RELRO elf.txt
  check "$name has all of them done at its start" grep -qE 'FLAGS_1.*\bNOW\b' elf.txt
  many "$name guards the stack in many functions" 5 "$(calls __stack_chk_fail)" "$functions"
  check "$name has fortified calls" grep -qE '<__[a-z]+_chk@plt>' <(grep -v stack_chk code.txt)
  case $(sed -nE 's/.*Machine: +//p' elf.txt) in
    *X86-64)
      check "$name probes large frames" grep -qE 'orq? +(QWORD PTR )?.*\$0x0,\(%rsp\)' code.txt
      many "$name marks where calls may go" 50 "$(grep -c endbr64 code.txt)" "$functions"
      ;;
    AArch64)
      check "$name probes large frames" grep -qE 'str +xzr, \[sp, #1024\]' code.txt
      many "$name signs where calls return to" 20 "$(grep -c paciasp code.txt)" "$functions"
      many "$name marks where calls may go" 20 "$(grep -cE 'paciasp|bti' code.txt)" "$functions"
      ;;
    *) not_ok "$name is for a processor of which more is known" ;;
  esac
}

hardened_windows() {
  local name=$1 file=$2 objdump=x86_64-w64-mingw32-objdump
  $objdump -p "$file" >headers.txt
  check "$name may be put at any place" grep -q DYNAMIC_BASE headers.txt
  check "$name may be put above four gigabytes" grep -q HIGH_ENTROPY_VA headers.txt
  check "$name is made for that" grep -qE '^ImageBase[[:space:]]+0000000[1-9a-f]' headers.txt
  check "$name has what it takes to move it" grep -q '\.reloc' <($objdump -h "$file")
  check "$name has no code among its data" grep -q NX_COMPAT headers.txt
  check "$name has no section to write and to run" test "$($objdump -h "$file" | grep -A 1 'CODE' | grep -c 'DATA.*CODE')" = 0
  check "$name guards its stack" grep -qa 'stack smashing detected' "$file"
  # The rest is told by symbols, which those that are given away do not have.
  grep -q 'no symbols' <(x86_64-w64-mingw32-nm "$file" 2>&1) && return
  $objdump -d --no-show-raw-insn "$file" >code.txt
  many "$name guards the stack in many functions" 5 "$(calls __stack_chk_fail)" "$(grep -cE '^ .*\sret\b' code.txt)"
  check "$name has fortified calls" grep -qE '(call|jmp) .*<__[a-z]+_chk>' <(grep -v stack_chk code.txt)
}
