#!/usr/bin/perl
# Includes of the library lead to the same floor or down, as the table in docs/architecture.md has it, and nothing
# outside knows more of it than Fovix.h, tests and benchmarks excepted. Programs do not use each other.
use strict;
use warnings;

sub slurp {
    my ($path) = @_;
    local $/;
    open my $file, '<', $path or die "$path: $!\n";
    return scalar <$file>;
}

my (%floor, @faults);
for my $row (slurp('docs/architecture.md') =~ /^(\| \d \|.*)$/mg) {
    my ($number, $modules) = $row =~ /^\| (\d) \|[^|]*\|(.*)\|$/;
    for my $module ($modules =~ /`(\w+)`/g) {
        push @faults, "$module stands on two floors" if defined $floor{$module};
        $floor{$module} = $number;
    }
}
my %seen;
for my $path (glob 'Multi/*.cpp Multi/*.h') {
    my ($module) = $path =~ m{(\w+)\.\w+$};
    next if $path eq 'Multi/Fovix.h';
    $seen{$module} = 1;
    push @faults, "$module stands on no floor" and next unless defined $floor{$module};
    for my $other (slurp($path) =~ /^#include "(\w+)\.h"/mg) {
        next if $other eq 'Fovix' || !defined $floor{$other};
        push @faults, "$path includes $other.h of a higher floor" if $floor{$other} > $floor{$module};
    }
}
push @faults, map { "$_ is no module of Multi/" } grep { !$seen{$_} } sort keys %floor;
for my $path (glob 'host/*.* host/*/*.* examples/*.c') {
    next unless $path =~ /\.(h|c|cpp)$/;
    for my $other (slurp($path) =~ m{^#include ["<]([\w/]+)\.h[">]}mg) {
        push @faults, "$path includes $other.h of the library" if $other ne 'Fovix' && $seen{$other};
        my ($program) = $other =~ m{^(render|view)/};
        push @faults, "$path includes $other.h of a program" if $program && $path !~ m{^host/$program/};
    }
}
print "$_\n" for @faults;
exit(@faults ? 1 : 0);
