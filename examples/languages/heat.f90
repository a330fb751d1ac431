! Heat in a thin rod: explicit steps in time, with a table of the temperatures at the end.
!
!   gfortran -Wall heat.f90 -o heat && ./heat 41

module rods
  use, intrinsic :: iso_fortran_env, only: real64, error_unit
  implicit none
  private
  public :: rod, new_rod

  integer, parameter, public :: dp = real64
  real(dp), parameter :: copper = 1.11e-4_dp   ! m**2/s

  type :: rod
    real(dp) :: length = 1.0_dp
    real(dp), allocatable :: temperature(:)
    logical, private :: insulated = .false.
  contains
    procedure :: step => rod_step
    procedure :: mean => rod_mean
    final :: say_goodbye
  end type rod

contains

  !> A rod whose left end is hot.
  function new_rod(points, length) result(made)
    integer, intent(in) :: points
    real(dp), intent(in), optional :: length
    type(rod) :: made

    if (present(length)) made%length = length
    allocate (made%temperature(points), source=20.0_dp)
    made%temperature(1) = 100.0_dp
  end function new_rod

  pure subroutine rod_step(self, dt)
    class(rod), intent(inout) :: self
    real(dp), intent(in) :: dt
    real(dp) :: dx, factor
    real(dp) :: before(size(self%temperature))
    integer :: i

    dx = self%length / (size(self%temperature) - 1)
    factor = copper * dt / dx**2
    before = self%temperature
    do concurrent (i = 2:size(before) - 1)
      self%temperature(i) = before(i) + factor * (before(i - 1) - 2 * before(i) + before(i + 1))
    end do
    if (self%insulated) self%temperature(size(before)) = self%temperature(size(before) - 1)
  end subroutine rod_step

  elemental real(dp) function rod_mean(self)
    class(rod), intent(in) :: self
    rod_mean = sum(self%temperature) / size(self%temperature)
  end function rod_mean

  subroutine say_goodbye(self)
    type(rod), intent(inout) :: self
    if (allocated(self%temperature)) deallocate (self%temperature)
  end subroutine say_goodbye

end module rods

program heat
  use rods, only: rod, new_rod, dp
  implicit none

  type(rod) :: bar
  integer :: points, step, stat, unit
  character(len=32) :: argument
  character(len=*), parameter :: form = "(a, i0, a, f7.3)"
  real(dp) :: dt
  logical :: cold

  points = 21
  if (command_argument_count() > 0) then
    call get_command_argument(1, argument)
    read (argument, *, iostat=stat) points
    if (stat /= 0 .or. points < 3) error stop 'The first argument is a number from 3 on.'
  end if

  bar = new_rod(points, length=0.5_dp)
  dt = 0.4_dp * (bar%length / (points - 1))**2 / 1.11e-4_dp
  write (*, '("A step is ", es9.2, " s")') dt

  cold = .true.
  heating: do step = 1, 20000
    call bar%step(dt)
    if (mod(step, 5000) == 0) print form, 'After step ', step, ': mean ', bar%mean()
    if (cold .and. bar%temperature(points / 2) >= 40.0_dp) then
      print *, "The middle isn't cold any more at step", step
      cold = .false.
    else if (bar%temperature(points - 1) > 99.0_dp) then
      exit heating
    end if
  end do heating

  open (newunit=unit, file='heat.txt', status='replace', action='write')
  select case (points)
  case (:10)
    write (unit, '(*(f6.1))') bar%temperature
  case (11:100)
    write (unit, '(5f8.2)') bar%temperature
  case default
    write (unit, *) 'Too many points: only the ends are ', bar%temperature([1, points])
  end select
  close (unit)

  !$omp parallel do
  do step = 1, 3
    print '(a, z8)', 'It''s in hexadecimal: ', ishft(255, step)
  end do
end program heat
