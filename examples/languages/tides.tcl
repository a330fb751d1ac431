#!/usr/bin/env tclsh
# Reads a table of the tides and says when the harbour can be entered.
# Run it with:  tclsh tides.tcl tides.txt "Grey Whale" 2.4

package require Tcl 8.6

namespace eval ::tides {
    variable harbours [dict create]
    variable margin 0.3   ;# metres under the keel
    namespace export read report
}

# A line is "HARBOUR; DATE; HH:MM; HEIGHT"; lines that begin with # are comments.
proc ::tides::parse {line} {
    set line [string trim $line]
    if {$line eq "" || [string index $line 0] eq "\#"} {
        return {}
    }
    lassign [split $line ";"] harbour date time height
    if {![regexp {^\s*\d{1,2}:\d{2}\s*$} $time] || ![string is double -strict $height]} {
        return -code error -errorcode {TIDES LINE} "\"$line\" is no tide"
    }
    set at [clock scan "[string trim $date] [string trim $time]" -format {%Y-%m-%d %H:%M} -gmt true]
    return [list [string trim $harbour] $at [expr {double($height)}]]
}

proc ::tides::read {path} {
    variable harbours
    set channel [open $path r]
    fconfigure $channel -encoding utf-8
    set number 0
    try {
        while {[gets $channel line] >= 0} {
            incr number
            if {[catch {parse $line} tide options]} {
                puts stderr "$path:$number: $tide"
                continue
            }
            if {[llength $tide] == 0} continue
            dict lappend harbours {*}[list [lindex $tide 0] [lrange $tide 1 end]]
        }
    } trap {POSIX EISDIR} {message} {
        error "$path is a folder"
    } finally {
        close $channel
    }
    return $number
}

oo::class create Ship {
    variable name draught

    constructor {aName aDraught} {
        set name $aName
        set draught [expr {max(0.1, $aDraught)}]
    }

    # The times between which there is water enough.
    method windows {tides} {
        set windows [list]
        set opened ""
        foreach tide [lsort -integer -index 0 $tides] {
            lassign $tide at height
            set deep [expr {$height >= $draught + $::tides::margin}]
            switch -- "$deep,[expr {$opened ne {}}]" {
                1,0 { set opened $at }
                0,1 {
                    lappend windows [list $opened $at]
                    set opened ""
                }
                default { }
            }
        }
        return $windows
    }

    method name {} { return "the \"$name\"" }
}

proc ::tides::report {ship} {
    variable harbours
    set format {%H:%M}
    dict for {harbour tides} $harbours {
        puts [format "%-12s %3d tides" $harbour [llength $tides]]
        foreach window [$ship windows $tides] {
            lassign [lmap at $window {clock format $at -format $format -gmt 1}] from to
            puts "\t[$ship name] may enter from $from to $to"
        }
    }
    array set colours {deep #1f6fb2 shallow #e0d8a0}
    return [array size colours]
}

if {[info exists argv0] && [file tail [info script]] eq [file tail $argv0]} {
    if {$argc < 1} {
        puts stderr "usage: [file tail $argv0] FILE ?SHIP? ?DRAUGHT?"
        exit 2
    }
    lassign $argv path name draught
    if {[catch {::tides::read $path} result]} {
        puts stderr "tides: $result"
        exit 1
    }
    set ship [Ship new [expr {$name eq "" ? "Nobody" : $name}] [expr {$draught eq "" ? 2.0 : $draught}]]
    ::tides::report $ship
    $ship destroy
}
